#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Text of fixed width. Lengths count characters, that is the code points of UTF-8 text.
namespace peakwright {

/// `value` by `mask`: the number stands where the mask has its `#`, `.` and `0`, every other
/// character but `-` stands for itself. The number has as many decimals as the mask has `0`, all
/// digits of its integer part but none for an integer part of 0, and its minus sign directly before
/// it unless it rounds to zero. Halves round away from zero, decided on the exact value. An
/// infinite value prints as "inf".
std::string Format(double value, std::string_view mask);

/// Number of characters of `text`.
std::size_t Length(std::string_view text);

/// The last `count` characters of `text`, or all of it if it has no more.
std::string_view Right(std::string_view text, std::size_t count);

namespace Module1 {

/// `value` by `mask`, padded with blanks or cut on the left to the length of the mask.
std::string align(std::string_view mask, float value);

/// `text` padded with up to 6 blanks or cut on the left to `width` characters, fraction dropped.
std::string aright(std::string_view text, float width);

}  // namespace Module1
}  // namespace peakwright

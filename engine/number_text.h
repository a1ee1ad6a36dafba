#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

/// Numbers read from and written to the user's text, in the same way in every locale.
namespace peakwright {

/// The number that `text` begins with, or 0 if none does. Blanks and tabs may stand before it. A
/// number is an optional sign, decimal digits with an optional point, and an optional exponent;
/// whatever follows is ignored. Too large a number is infinite, too small a one is 0.
double Val(std::string_view text);

/// The decimal digits of `value`, with a minus sign if it is negative.
std::string Str(std::int64_t value);

/// `value` without its fraction; the nearest Int64 if it is out of range, 0 if it is no number.
inline std::int64_t Truncate(double value) {
  constexpr double kBound = 9223372036854775808.0;  // 2^63, the first value too large
  if (value >= -kBound && value < kBound) return static_cast<std::int64_t>(value);
  if (value < 0) return std::numeric_limits<std::int64_t>::min();
  return value > 0 ? std::numeric_limits<std::int64_t>::max() : 0;
}

}  // namespace peakwright

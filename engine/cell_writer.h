#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

/// Writes the cells of a report row in place: the same characters as Module1::align, without a text
/// of their own for each. The points and the bracket of the masks must stand in the row already,
/// and cells are written from right to left: digits go in by fours, so that a cell with room for
/// three before its point spoils the last character of the cell to its left.
namespace peakwright {

/// A mask of the form " ###.0000", taken apart.
struct CellMask {
  constexpr explicit CellMask(std::string_view mask)
      : text(mask), places(mask.substr(0, mask.find('.')).size()) {
    if (places < mask.size()) decimals = mask.size() - places - 1;
    for (std::size_t i = 0; i < decimals; ++i) scale *= 10;
  }

  std::string_view text;
  std::size_t places;        ///< characters before the point: 3 or 4
  std::size_t decimals = 0;  ///< at most 4
  std::uint32_t scale = 1;   ///< 10 to the power of decimals
};

using FourDigits = std::array<char, 4>;
using FourDigitTable = std::array<FourDigits, 10000>;

extern const FourDigitTable kBlankPadded;  ///< 0 to 9999, padded with blanks; 0 is all blank
extern const FourDigitTable kZeroPadded;   ///< 0 to 9999, padded with zeros

/// The way for any value, which need not be common.
void WriteAnyCell(char* cell, const CellMask& mask, float value);

/// Writes `value` by `mask`.
inline void WriteCell(char* cell, const CellMask& mask, float value) {
  // The bits of Singles from 0 up are in the order of their values, those of all others above them.
  constexpr auto kTooLarge = std::bit_cast<std::uint32_t>(9999.0F);
  if (std::bit_cast<std::uint32_t>(value) >= kTooLarge) return WriteAnyCell(cell, mask, value);

  // Exact: the 24 bits of a Single times the 10 of 625 fit in a Double, as does the half added.
  // NOLINTNEXTLINE(bugprone-incorrect-roundings): neither negative nor inexact
  const auto units = static_cast<std::int32_t>(double{value} * mask.scale + 0.5);
  const auto whole = static_cast<std::uint32_t>(units) / mask.scale;
  const auto fraction = static_cast<std::uint32_t>(units) % mask.scale;
  std::memcpy(cell + mask.places - 4, kBlankPadded[whole].data(), 4);
  std::memcpy(cell + mask.places + 1, kZeroPadded[fraction].data() + 4 - mask.decimals,
              mask.decimals);
}

/// Writes `count`, 0 or more, by a mask without decimals.
inline void WriteCount(char* cell, const CellMask& mask, std::int64_t count) {
  if (count > 9999) return WriteAnyCell(cell, mask, static_cast<float>(count));
  std::memcpy(cell + mask.places - 4, kBlankPadded[static_cast<std::size_t>(count)].data(), 4);
}

/// Writes the last four digits of `number`, 1 or more, which goes through a Single as all values
/// do.
inline void WriteRowNumber(char* cell, std::int64_t number) {
  const auto shown =
      static_cast<std::size_t>(static_cast<std::int64_t>(static_cast<float>(number)));
  const FourDigits& digits = shown < 10000 ? kBlankPadded[shown] : kZeroPadded[shown % 10000];
  std::memcpy(cell, digits.data(), 4);
}

}  // namespace peakwright

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

/// Values from 0 up to below this are common: their digits are those of the tables.
inline constexpr float kEndOfCommon = 9999;

/// The place of a Single among all: in the order of their values from 0 up, all others above them.
inline std::uint32_t Rank(float value) { return std::bit_cast<std::uint32_t>(value); }

/// A common value in units of the last decimal, `scale` of them to 1.
inline std::uint32_t InUnits(float value, std::uint32_t scale) {
  // Exact: the 24 bits of a Single times the 10 of 625 fit in a Double, as does the half added.
  // NOLINTNEXTLINE(bugprone-incorrect-roundings): neither negative nor inexact
  return static_cast<std::uint32_t>(static_cast<std::int32_t>(double{value} * scale + 0.5));
}

/// Writes a number of at most 9999 by a mask without decimals, or before the point of one with.
inline void WriteWhole(char* cell, const CellMask& mask, std::uint32_t number) {
  std::memcpy(cell + mask.places - 4, kBlankPadded[number].data(), 4);
}

/// Writes a value that is cut at its point.
inline void WriteDigits(char* cell, const CellMask& mask, std::uint32_t whole,
                        std::uint32_t fraction) {
  WriteWhole(cell, mask, whole);
  std::memcpy(cell + mask.places + 1, kZeroPadded[fraction].data() + 4 - mask.decimals,
              mask.decimals);
}

/// Writes any value.
void WriteAny(char* cell, const CellMask& mask, float value);

/// Writes `value` by `mask`.
inline void WriteCell(char* cell, const CellMask& mask, float value) {
  if (Rank(value) >= Rank(kEndOfCommon)) return WriteAny(cell, mask, value);
  const std::uint32_t units = InUnits(value, mask.scale);
  WriteDigits(cell, mask, units / mask.scale, units % mask.scale);
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

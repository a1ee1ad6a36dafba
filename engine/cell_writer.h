#pragma once

#include <array>
#include <bit>
#include <cassert>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>

/// Writes the cells of a report row in place: the same characters as Module1::align, without a text
/// of their own for each. The points and the bracket of the masks must stand in the row already.
/// Digits go in by fours, also into a cell with room for three before its point, where the first
/// lands on the last character of the cell to the left: so cells are written from right to left.
namespace peakwright {

/// A mask of the form " ###.0000" or "####)", taken apart.
struct CellMask {
  constexpr explicit CellMask(std::string_view mask)
      : text(mask), places(mask.substr(0, mask.find_first_of(".)")).size()) {
    if (places < mask.size()) decimals = mask.size() - places - 1;
    for (std::size_t i = 0; i < decimals; ++i) scale *= 10;
    assert((places == 3 || places == 4) && decimals <= 4);
  }

  std::string_view text;
  std::size_t places;        ///< characters before the point: 3 or 4
  std::size_t decimals = 0;  ///< at most 4
  std::uint32_t scale = 1;   ///< 10 to the power of decimals
};

using FourDigits = std::array<char, 4>;

/// What a cell shows of a whole number before its point, in four characters. Below 10000 that is
/// the number behind blanks, of 0 blanks only; from there to 20000 its last four digits, so that
/// entry 10000 + f holds the four digits of f.
extern const std::array<FourDigits, 20001> kFourDigits;

/// The bits of a Single as a number. They compare as the values do from 0 up to infinity; those of
/// negative values, and of what is no number, are higher still.
inline std::uint32_t Bits(float value) { return std::bit_cast<std::uint32_t>(value); }

/// From here up a Single has no fraction.
inline constexpr float kEndOfFractions = 1U << std::numeric_limits<float>::digits;

/// The last four digits of a finite value from kEndOfFractions up.
std::uint32_t LastFourDigits(float value);

/// A value from 0 up with the whole part that its cell shows: from 10000 on only the last four
/// digits, behind a 1.
inline float Shown(float value) {
  if (value < 10000) return value;
  if (value >= kEndOfFractions) return static_cast<float>(10000 + LastFourDigits(value));
  const std::uint32_t tenThousands = static_cast<std::uint32_t>(value) / 10000;
  return value - static_cast<float>((tenThousands - 1) * 10000);
}

/// What Shown() gave in units of the last decimal, `scale` of them to 1.
inline std::uint32_t InUnits(float shown, std::uint32_t scale) {
  // Exact: the 24 bits of a Single times the 10 of 625 fit in a Double, as does the half added.
  // NOLINTNEXTLINE(bugprone-incorrect-roundings): neither negative nor inexact
  return static_cast<std::uint32_t>(static_cast<std::int32_t>(double{shown} * scale + 0.5));
}

/// Likewise a whole number.
inline std::uint32_t ShownWhole(std::uint64_t number) {
  return static_cast<std::uint32_t>(number < 10000 ? number : 10000 + number % 10000);
}

/// Likewise a count from 0 up, which a cell shows as the Single that is nearest. (It goes through
/// its bits where it is large: 32-bit x86 wouldn't round it between two conversions.)
inline std::uint32_t ShownCount(std::int64_t count) {
  return static_cast<std::uint32_t>(Shown(static_cast<float>(count)));
}

/// Writes a number of at most 20000 by a mask without decimals, or before the point of one with.
inline void WriteWhole(char* cell, const CellMask& mask, std::uint32_t number) {
  assert(number < kFourDigits.size());
  std::memcpy(cell + mask.places - 4, kFourDigits[number].data(), 4);
}

/// Writes a value that is cut at its point.
inline void WriteDigits(char* cell, const CellMask& mask, std::uint32_t whole,
                        std::uint32_t fraction) {
  WriteWhole(cell, mask, whole);
  std::memcpy(cell + mask.places + 1, kFourDigits[10000 + fraction].data() + 4 - mask.decimals,
              mask.decimals);
}

/// Writes the sign of a negative number into the last blank; one without a blank has lost it.
inline void WriteSign(char* cell, const CellMask& mask, std::uint32_t whole) {
  const std::size_t digits = 0U + (whole > 0) + (whole > 9) + (whole > 99) + (whole > 999);
  if (digits < mask.places) cell[mask.places - 1 - digits] = '-';
}

/// Writes what is infinite or no number.
void WriteNotFinite(char* cell, const CellMask& mask, float value);

/// Writes any value.
template <const CellMask& kMask>
void WriteCell(char* cell, float value) {
  if (!std::isfinite(value)) return WriteNotFinite(cell, kMask, value);
  const std::uint32_t units = InUnits(Shown(std::abs(value)), kMask.scale);
  const std::uint32_t whole = units / kMask.scale;
  WriteDigits(cell, kMask, whole, units % kMask.scale);
  if (value < 0 && units > 0) WriteSign(cell, kMask, whole);
}

}  // namespace peakwright

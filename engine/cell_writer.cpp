#include "engine/cell_writer.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "engine/format.h"

namespace peakwright {
namespace {

constexpr FourDigitTable NumbersPaddedWith(char padding) {
  FourDigitTable numbers{};
  for (std::size_t number = 0; number < numbers.size(); ++number) {
    std::size_t rest = number;
    for (std::size_t place = 4; place-- > 0; rest /= 10) {
      numbers[number][place] = rest == 0 ? padding : static_cast<char>('0' + rest % 10);
    }
  }
  return numbers;
}

/// The last four digits of `value`, a whole number from 2^24 up; in steps that stay within 64 bits.
std::uint64_t LastFourDigits(float value) {
  constexpr int kMantissaBits = 24;
  int exponent = 0;
  const float mantissa = std::ldexp(std::frexp(value, &exponent), kMantissaBits);
  auto rest = static_cast<std::uint64_t>(mantissa);
  for (int left = exponent - kMantissaBits; left > 0;) {
    const int step = std::min(left, 48);
    rest = (rest % 10000) << step;
    left -= step;
  }
  return rest % 10000;
}

}  // namespace

constinit const FourDigitTable kBlankPadded = NumbersPaddedWith(' ');
constinit const FourDigitTable kZeroPadded = NumbersPaddedWith('0');

void WriteAny(char* cell, const CellMask& mask, float value) {
  if (!std::isfinite(value)) {
    const std::string text = Module1::align(mask.text, value);
    std::copy(text.begin(), text.end(), cell);
    return;
  }

  // From 2^24 up a Single has no fraction, and of the rest the cell shows the last four digits.
  constexpr float kNoFraction = 16777216;
  float magnitude = std::abs(value);
  if (magnitude >= kNoFraction) {
    magnitude = static_cast<float>(10000 + LastFourDigits(magnitude));
  }
  // NOLINTNEXTLINE(bugprone-incorrect-roundings): neither negative nor inexact
  const auto units = static_cast<std::int64_t>(double{magnitude} * mask.scale + 0.5);
  const auto whole = static_cast<std::size_t>(units / mask.scale);
  char* const point = cell + mask.places;
  std::memcpy(point - 4, (whole < 10000 ? kBlankPadded : kZeroPadded)[whole % 10000].data(), 4);
  const FourDigits& fraction = kZeroPadded[static_cast<std::size_t>(units % mask.scale)];
  std::memcpy(point + 1, fraction.data() + 4 - mask.decimals, mask.decimals);
  if (value < 0 && units > 0) {
    char* sign = point;  // which goes into the last blank; a number without one has lost it
    while (sign != cell && *--sign != ' ') {
    }
    if (*sign == ' ') *sign = '-';
  }
}

}  // namespace peakwright

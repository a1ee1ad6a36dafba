#include "engine/cell_writer.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <limits>

namespace peakwright {
namespace {

constexpr int kMantissaBits = std::numeric_limits<float>::digits;

/// The last four digits of the powers of 2 from 1 to the highest in a Single.
constexpr auto kPowersOfTwo = [] {
  std::array<std::uint32_t, std::numeric_limits<float>::max_exponent - kMantissaBits + 1> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 2 % 10000;
  return powers;
}();

}  // namespace

constinit const std::array<FourDigits, 20001> kFourDigits = [] {
  std::array<FourDigits, 20001> numbers{};
  numbers[0] = {' ', ' ', ' ', ' '};
  for (std::size_t number = 1; number < numbers.size(); ++number) {
    const FourDigits& tens = numbers[number / 10];
    numbers[number] = {tens[1], tens[2], tens[3], static_cast<char>('0' + number % 10)};
  }
  return numbers;
}();

std::uint32_t LastFourDigits(float value) {
  assert(value >= kEndOfFractions && std::isfinite(value));
  constexpr std::uint32_t kLeadingBit = 1U << (kMantissaBits - 1);
  constexpr std::uint32_t kBias =  // of the exponent, for a mantissa that is a whole number
      std::numeric_limits<float>::max_exponent - 2 + kMantissaBits;
  const std::uint32_t mantissa = Bits(value) % kLeadingBit + kLeadingBit;
  return mantissa % 10000 * kPowersOfTwo[Bits(value) / kLeadingBit - kBias] % 10000;
}

void WriteNotFinite(char* cell, const CellMask& mask, float value) {
  const std::string_view text = std::isnan(value) ? "nan" : value < 0 ? "-inf" : "inf";
  const std::size_t width = mask.text.size();
  std::memset(cell, ' ', width);
  const std::size_t written = std::min(text.size(), width);
  std::memcpy(cell + width - written, text.data() + text.size() - written, written);
}

}  // namespace peakwright

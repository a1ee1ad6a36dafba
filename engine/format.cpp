#include "engine/format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "engine/number_text.h"

namespace peakwright {
namespace {

/// Adds one unit to the last place of a decimal number such as "99.9".
void Increment(std::string& digits) {
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
    if (*digit == '.') continue;
    if (*digit != '9') {
      ++*digit;
      return;
    }
    *digit = '0';
  }
  digits.insert(digits.begin(), '1');
}

std::string ToDecimal(double value, int decimals) {
  std::array<char, 512> text{};  // a Double has at most 309 digits before the point
  const auto end =
      std::to_chars(text.begin(), text.end(), value, std::chars_format::fixed, decimals).ptr;
  return {text.begin(), end};
}

/// `magnitude` with `decimals` decimals, halves rounded up, and no digit for an integer part of 0.
std::string RoundedDecimal(double magnitude, int decimals) {
  // A value on a half has at most decimals + 1 binary places, and so is exact with one decimal
  // more. The library rounds all other values the same way as we do.
  const double scaled = std::ldexp(magnitude, decimals + 1);
  const bool mayBeHalf = std::isfinite(scaled) && scaled == std::trunc(scaled);
  std::string digits = ToDecimal(magnitude, mayBeHalf ? decimals + 1 : decimals);
  if (mayBeHalf) {
    const bool up = digits.back() >= '5';
    digits.pop_back();
    if (digits.back() == '.') digits.pop_back();
    if (up) Increment(digits);
  }
  if (digits.front() == '0') digits.erase(0, 1);
  return digits;
}

bool StartsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

}  // namespace

std::string Format(double value, std::string_view mask) {
  const auto decimals = static_cast<int>(std::count(mask.begin(), mask.end(), '0'));
  std::string number = RoundedDecimal(std::abs(value), decimals);
  const bool isZero = number.find_first_not_of("0.") == std::string::npos;
  if (value < 0 && !isZero) number.insert(0, 1, '-');

  std::string text;
  bool written = false;
  for (const char place : mask) {
    if (place == '#' || place == '.' || place == '0') {
      if (!written) text += number;
      written = true;
    } else if (place != '-') {
      text += place;
    }
  }
  return text;
}

std::size_t Length(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), StartsCharacter));
}

std::string_view Right(std::string_view text, std::size_t count) {
  std::size_t start = text.size();
  while (start > 0 && count > 0) {
    --start;
    if (StartsCharacter(text[start])) --count;
  }
  return text.substr(start);
}

std::string Module1::align(std::string_view mask, float value) {
  constexpr std::size_t kPadding = 14;
  return std::string(Right(std::string(kPadding, ' ') + Format(value, mask), Length(mask)));
}

std::string Module1::aright(std::string_view text, float width) {
  constexpr std::size_t kPadding = 6;
  const auto characters = static_cast<std::size_t>(std::max<std::int64_t>(Truncate(width), 0));
  return std::string(Right(std::string(kPadding, ' ').append(text), characters));
}

}  // namespace peakwright

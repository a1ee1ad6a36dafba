#include "engine/number_text.h"

#include <algorithm>
#include <cstdlib>

namespace peakwright {
namespace {

/// The decimal digits that `text` begins with; `text` loses them.
std::string_view TakeDigits(std::string_view& text) {
  const std::string_view digits = text.substr(0, text.find_first_not_of("0123456789"));
  text.remove_prefix(digits.size());
  return digits;
}

/// Whether `text` begins with a minus sign; `text` loses that, or a plus sign.
bool TakeSign(std::string_view& text) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  return negative;
}

/// The power of ten that `text` begins with, such as "e-7", or 0 if there is none.
std::int64_t Exponent(std::string_view text) {
  constexpr std::int64_t kEnough = 1'000'000'000'000;  // no text has so many digits to make up for
  if (!text.starts_with('e') && !text.starts_with('E')) return 0;
  text.remove_prefix(1);
  const bool negative = TakeSign(text);
  std::int64_t exponent = 0;
  for (const char digit : TakeDigits(text)) {
    exponent = std::min(exponent * 10 + (digit - '0'), kEnough);
  }
  return negative ? -exponent : exponent;
}

}  // namespace

double Val(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  const bool negative = TakeSign(text);
  std::string number(TakeDigits(text));
  std::int64_t decimals = 0;
  if (text.starts_with('.')) {
    text.remove_prefix(1);
    const std::string_view fraction = TakeDigits(text);
    number += fraction;
    decimals = static_cast<std::int64_t>(fraction.size());
  }
  if (number.empty()) return 0;

  // Without a point, strtod takes the same text in every locale. Not every library has from_chars.
  number += 'e' + Str(Exponent(text) - decimals);
  const double value = std::strtod(number.c_str(), nullptr);
  return negative ? -value : value;
}

std::string Str(std::int64_t value) { return std::to_string(value); }

}  // namespace peakwright

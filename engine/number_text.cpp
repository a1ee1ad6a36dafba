#include "engine/number_text.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace peakwright {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Whether the number that spans `text` has an order of magnitude above 0: tells overflow from
/// underflow where a Double holds neither.
bool IsLarge(std::string_view text) {
  const std::size_t mantissaEnd = std::min(text.find_first_of("eE"), text.size());
  const std::string_view mantissa = text.substr(0, mantissaEnd);
  const auto point = static_cast<std::ptrdiff_t>(std::min(mantissa.find('.'), mantissaEnd));
  const auto leading = static_cast<std::ptrdiff_t>(mantissa.find_first_of("123456789"));
  if (mantissaEnd == text.size()) return leading < point;

  std::string_view exponentText = text.substr(mantissaEnd + 1);
  if (exponentText.front() == '+') exponentText.remove_prefix(1);
  std::ptrdiff_t exponent = 0;
  const auto [end, error] =
      std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
  if (error != std::errc()) return exponentText.front() != '-';
  return exponent > leading - point;
}

}  // namespace

double Val(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  // What else the library would take (another sign, "inf", "nan") is no number here.
  const std::size_t first = text.starts_with('.') ? 1 : 0;
  if (first >= text.size() || !IsDigit(text[first])) return 0;

  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::result_out_of_range) {
    const auto length = static_cast<std::size_t>(end - text.data());
    value = IsLarge(text.substr(0, length)) ? std::numeric_limits<double>::infinity() : 0;
  }
  return negative ? -value : value;
}

std::string Str(std::int64_t value) { return std::to_string(value); }

}  // namespace peakwright

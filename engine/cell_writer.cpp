#include "engine/cell_writer.h"

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

}  // namespace

constinit const FourDigitTable kBlankPadded = NumbersPaddedWith(' ');
constinit const FourDigitTable kZeroPadded = NumbersPaddedWith('0');

void WriteAnyCell(char* cell, const CellMask& mask, float value) {
  const std::string text = Module1::align(mask.text, value);
  std::memcpy(cell, text.data(), text.size());
}

}  // namespace peakwright

// Every STEP-th Single from 0 up to below 9999, and some of all others, through each mask of the
// report: by the cell writer and by align(), against exact decimal arithmetic on the Single's bits.
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "engine/format.h"
#include "engine/row_layout.h"

namespace peakwright {
namespace {

template <const CellMask& kMask>
void WriteCount(char* cell, float count) {
  WriteWhole(cell, kMask, ShownCount(static_cast<std::int64_t>(count)));
}

constexpr struct {
  std::string_view mask;
  void (*write)(char* cell, float value);
  bool countsAlone;
} kCells[] = {{" ###.0000", WriteCell<kExactMask>, false}, {" ###.00", WriteCell<kM1Mask>, false},
              {" ##.0", WriteCell<kRdbMask>, false},       {" ##", WriteCount<kCountMask>, true},
              {"####)", WriteCount<kNumberMask>, true},    {"-####", nullptr, false}};

/// Magnitude of a finite Single in units of the last of `decimals`, halves up; of more than 15
/// digits the last 15, behind a 1.
std::uint64_t Units(std::uint32_t bits, std::size_t decimals) {
  constexpr std::uint64_t kEnd = 1'000'000'000'000'000;
  const int exponent = static_cast<int>(bits >> 23 & 0xFF);
  std::uint64_t units = (bits & 0x7F'FFFF) + (exponent > 0 ? 0x80'0000 : 0);
  for (std::size_t i = 0; i < decimals; ++i) units *= 10;
  const int binaryPlaces = 150 - std::max(exponent, 1);
  if (binaryPlaces > 60) return 0;
  if (binaryPlaces > 0) return (units + (1ULL << (binaryPlaces - 1))) >> binaryPlaces;
  for (int i = binaryPlaces; i < 0; ++i) {
    units *= 2;
    if (units >= kEnd) units = kEnd + units % kEnd;
  }
  return units;
}

/// What the mask makes of a Single.
std::string_view Literally(std::uint32_t bits, std::string_view mask, char (&text)[32]) {
  char* first = std::end(text);
  const auto digit = [&first](std::uint64_t units) {
    *--first = static_cast<char>('0' + units % 10);
  };
  if (mask.back() == ')') *--first = ')';
  bool positive = bits >> 31 == 0;
  if ((bits >> 23 & 0xFF) == 0xFF) {
    const bool infinite = (bits & 0x7F'FFFF) == 0;
    for (const char c : std::string_view(infinite ? "fni" : "nan")) *--first = c;
    positive = positive || !infinite;
  } else {
    const std::size_t decimals = mask.find('.') == mask.npos ? 0 : mask.size() - mask.find('.') - 1;
    std::uint64_t units = Units(bits, decimals);
    positive = positive || units == 0;
    for (std::size_t i = 0; i < decimals; ++i, units /= 10) digit(units);
    if (decimals > 0) *--first = '.';
    for (; units > 0; units /= 10) digit(units);
  }
  if (!positive) *--first = '-';
  char* const cell = std::end(text) - mask.size();
  while (first > cell) *--first = ' ';
  return {cell, mask.size()};
}

void Check(std::uint32_t bits) {
  const auto value = std::bit_cast<float>(bits);
  const bool isCount = value >= 0 && value < 0x1p63F && value == std::trunc(value);
  for (const auto& [mask, write, countsAlone] : kCells) {
    char text[32];
    const std::string_view expected = Literally(bits, mask, text);
    char row[] = "          ";
    char* const cell = row + 1;  // behind what a cell may spoil
    cell[mask.size() - 1] = mask.back();
    if (mask.find('.') != mask.npos) cell[mask.find('.')] = '.';
    const bool written = write != nullptr && (isCount || !countsAlone);
    if (written) write(cell, value);
    const std::string aligned = Module1::align(mask, value);
    const std::string_view shown(cell, mask.size());
    if (aligned == expected && (!written || shown == expected)) continue;
    std::fprintf(stderr, "%.9g by \"%s\" is not \"%s\" or \"%s\"\n", double{value}, mask.data(),
                 aligned.c_str(), cell);
    std::abort();
  }
}

}  // namespace
}  // namespace peakwright

int main(int argc, char** argv) {
  constexpr std::uint64_t kAll = 1ULL << 32;
  constexpr std::uint64_t kOthers = 30'011;
  const auto end = std::bit_cast<std::uint32_t>(9999.0F);
  const std::uint64_t step = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 1;
  for (std::uint64_t bits = 0; bits < end; bits += step) {
    peakwright::Check(static_cast<std::uint32_t>(bits));
  }
  for (std::uint64_t bits = end; bits < kAll; bits += kOthers) {
    peakwright::Check(static_cast<std::uint32_t>(bits));
  }
  std::printf("All cells agree.\n");
}

// Every STEP-th Single from 0 up to below 9999 and some from there up, and their negatives, through
// each mask of the report: by the cell writer and by align(), against the literal run's cells.
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "engine/format.h"
#include "engine/row_layout.h"
#include "tests/support/literal_run.h"

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

void Check(std::uint32_t bits) {
  const auto value = std::bit_cast<float>(bits);
  const bool isCount = value >= 0 && value < 0x1p63F && value == std::trunc(value);
  for (const auto& [mask, write, countsAlone] : kCells) {
    const std::string expected = LiteralCell(value, mask);
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
  constexpr std::uint32_t kSign = 1U << 31;
  constexpr std::uint32_t kOthers = 30'011;
  const auto end = std::bit_cast<std::uint32_t>(9999.0F);
  const std::uint64_t step = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 1;
  for (std::uint64_t bits = 0; bits < kSign; bits += bits < end ? step : kOthers) {
    peakwright::Check(static_cast<std::uint32_t>(bits));
    peakwright::Check(static_cast<std::uint32_t>(bits) | kSign);
  }
  std::printf("All cells agree.\n");
}

#include "engine/search.h"

#include <cmath>

#include "engine/number_text.h"

namespace peakwright {
namespace {

bool IsWhole(float rdb) { return rdb - std::trunc(rdb) == 0; }

}  // namespace

SearchResult Search(const SearchInput& input, Listing& listing) {
  const Elements& elements = input.elements;
  const auto mass = static_cast<double>(input.remainingMass);
  const double massC = elements.unitMass[kC];
  const double massN = elements.unitMass[kN];
  const double massO = elements.unitMass[kO];
  if (!(massC > 0 && massN > 0 && massO > 0)) return SearchResult::kComplete;
  const std::int64_t maxC = Truncate(mass / massC);
  const std::int64_t maxO = Truncate(mass / massO);
  const std::int64_t maxN = Truncate(mass / massN);
  const Atom carbon(elements, kC);
  const Atom hydrogen(elements, kH);
  const Atom nitrogen(elements, kN);
  const Atom oxygen(elements, kO);

  std::int64_t passes = 0;
  for (std::int64_t c = 0; c <= maxC; ++c) {
    const auto countC = static_cast<double>(c);
    const double afterC = mass - massC * countC;
    if (!(afterC >= 0)) break;
    for (std::int64_t o = 0; o <= maxO; ++o) {
      const auto countO = static_cast<double>(o);
      const double afterO = afterC - massO * countO;
      if (!(afterO >= 0)) break;
      if (++passes > kPassLimit) return SearchResult::kTooManyPasses;
      for (std::int64_t n = 0; n <= maxN; ++n) {
        if (++passes > kPassLimit) return SearchResult::kTooManyPasses;
        const auto countN = static_cast<double>(n);
        const std::int64_t h = Truncate(afterO - massN * countN);
        if (h < 0) break;
        const auto countH = static_cast<double>(h);
        const float rdb = Rdb(carbon.SpareBonds(countC), hydrogen.SpareBonds(countH),
                              nitrogen.SpareBonds(countN), input.totals);
        if (!(rdb >= 0)) continue;
        if (input.nitrogenRule && !IsWhole(rdb)) continue;
        if (listing.RowNumber() == kRowLimit) return SearchResult::kTooManyRows;
        const RowValues values =
            SumTerms(carbon.Terms(countC), hydrogen.Terms(countH), nitrogen.Terms(countN),
                     oxygen.Terms(countO), input.totals);
        listing.AppendRow({c, h, n, o, values, rdb});
      }
    }
  }
  return SearchResult::kComplete;
}

}  // namespace peakwright

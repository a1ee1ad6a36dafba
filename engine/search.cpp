#include "engine/search.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "engine/formula_batch.h"
#include "engine/number_text.h"

namespace peakwright {
namespace {

/// How many atoms of `unitMass` the mass has room for. Stays below the end of Int64, so that a
/// loop can count one further.
std::int64_t MaxCount(double mass, double unitMass) {
  return std::min(Truncate(mass / unitMass), std::numeric_limits<std::int64_t>::max() - 1);
}

/// Whether, other counts being equal, a formula with more N, and so less H, never has less RDB.
bool RdbRisesWithN(const Elements& elements) {
  const float h = elements.valence[kH];
  const float n = elements.valence[kN];
  return h <= 2 && n >= 2 && std::isfinite(h) && std::isfinite(n);
}

/// Rows to make room for: the formulas fill about a sixth of the box of their counts, or less.
std::int64_t ExpectedRows(double maxC, double maxO, double maxN, std::int64_t limit) {
  return std::min(Truncate((maxC + 1) * (maxO + 1) * (maxN + 1) / 6), limit);
}

}  // namespace

SearchResult Search(const SearchInput& input, Listing& listing) {
  const Elements& elements = input.elements;
  const auto mass = static_cast<double>(input.remainingMass);
  const double massC = elements.unitMass[kC];
  const double massN = elements.unitMass[kN];
  const double massO = elements.unitMass[kO];
  if (massC <= 0 || massN <= 0 || massO <= 0) return SearchResult::kComplete;
  const std::int64_t maxC = MaxCount(mass, massC);
  const std::int64_t maxO = MaxCount(mass, massO);
  const std::int64_t maxN = MaxCount(mass, massN);
  listing.Reserve(ExpectedRows(static_cast<double>(maxC), static_cast<double>(maxO),
                               static_cast<double>(maxN), input.limits.rows));

  const Atom carbon(elements, kC);
  const Atom hydrogen(elements, kH);
  const Atom nitrogen(elements, kN);
  FormulaBatch batch(elements, input.totals);
  const std::int64_t passLimit = input.limits.passes;
  std::int64_t passes = 0;
  std::int64_t firstOfC = RdbRisesWithN(elements) ? maxN : 0;
  for (std::int64_t c = 0; c <= maxC; ++c) {
    const double afterC = mass - massC * static_cast<double>(c);
    if (!(afterC >= 0)) break;
    const double bondsC = carbon.SpareBonds(static_cast<double>(c));
    std::int64_t firstN = firstOfC;
    for (std::int64_t o = 0; o <= maxO; ++o) {
      const double afterO = afterC - massO * static_cast<double>(o);
      if (!(afterO >= 0)) break;
      if (++passes > passLimit) return SearchResult::kTooManyPasses;
      const auto countH = [&](std::int64_t n) {
        return Truncate(afterO - massN * static_cast<double>(n));
      };
      const auto isValid = [&](std::int64_t n) {
        return Rdb(bondsC, hydrogen.SpareBonds(static_cast<double>(countH(n))),
                   nitrogen.SpareBonds(static_cast<double>(n)), input.totals) >= 0;
      };
      // Where RDB rises with N, all numbers below an invalid one are invalid too.
      while (firstN > 0 && isValid(firstN - 1)) {
        --firstN;
        if (++passes > passLimit) return SearchResult::kTooManyPasses;
      }
      if (o == 0) firstOfC = firstN;
      for (std::int64_t n = firstN; n <= maxN; ++n) {
        if (++passes > passLimit) return SearchResult::kTooManyPasses;
        const std::int64_t h = countH(n);
        if (h < 0) break;
        batch.Add(c, h, n, o);
        if (batch.Full()) {
          listing.AppendValid(batch, input.nitrogenRule);
          if (listing.RowNumber() > input.limits.rows) return SearchResult::kTooManyRows;
        }
      }
    }
  }
  listing.AppendValid(batch, input.nitrogenRule);
  return listing.RowNumber() > input.limits.rows ? SearchResult::kTooManyRows
                                                 : SearchResult::kComplete;
}

}  // namespace peakwright

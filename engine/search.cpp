#include "engine/search.h"

#include <algorithm>
#include <cassert>
#include <limits>
#include <numeric>

#include "engine/number_text.h"
#include "engine/unit_masses.h"

namespace peakwright {
namespace {

/// The lowest number from 0 up from which all below `end` have a property that, once a number has
/// it, all above have too. Takes few steps if that is near `guess`.
template <typename Property>
std::int64_t LowestWith(const Property& has, std::int64_t end, std::int64_t guess) {
  constexpr std::int64_t kLongStep = std::int64_t{1} << 61;
  std::int64_t with = end;
  std::int64_t without = -1;
  std::int64_t next = std::min(std::max<std::int64_t>(guess, 0), end - 1);
  for (std::int64_t step = 1; without < next && next < with; step = std::min(2 * step, kLongStep)) {
    if (has(next)) {
      with = next;
      next -= std::min(step, next - without);
    } else {
      without = next;
      next += std::min(step, with - next);
    }
  }
  while (with - 1 > without) {
    const std::int64_t middle = std::midpoint(without, with);
    (has(middle) ? with : without) = middle;
  }
  return with;
}

/// Numbers of N, from `first` to below `end`; none if that isn't above `first`.
struct Range {
  std::int64_t first;
  std::int64_t end;

  std::int64_t Size() const { return std::max<std::int64_t>(end - first, 0); }
};

/// How far the ends of a range fell from one number of C or O to the next. They fall as far again
/// the next time, give or take a little.
struct Fall {
  std::int64_t ofFirst = 0;
  std::int64_t ofEnd = 0;
};

/// The formulas of one number of C and one of O, each known by its number of N.
class Candidates {
 public:
  Candidates(const UnitMasses& masses, const Sums& sums, double c, double afterO)
      : masses_(masses), sums_(sums), c_(c), afterO_(afterO) {}

  std::int64_t H(std::int64_t n) const {
    return Truncate(masses_.AfterN(afterO_, static_cast<double>(n)));
  }

  float Rdb(std::int64_t n) const {
    return sums_.Rdb(c_, static_cast<double>(H(n)), static_cast<double>(n));
  }

  /// Lowers the ends of `range` to the first N that leaves no mass for H, and to the first from
  /// which all are valid.
  void Lower(Range& range, Fall& fall) const {
    const auto isTooMany = [this](std::int64_t n) { return H(n) < 0; };
    const auto isEnough = [this](std::int64_t n) { return Rdb(n) >= 0; };
    const Range former = range;
    range.end = LowestWith(isTooMany, former.end, former.end - fall.ofEnd);
    range.first =
        LowestWith(isEnough, std::min(former.first, range.end), former.first - fall.ofFirst);
    fall = {former.first - range.first, former.end - range.end};
  }

  std::int64_t CountValid(Range range, bool nitrogenRule) const {
    std::int64_t count = 0;
    for (std::int64_t n = range.first; n < range.end; ++n) {
      if (IsValid(Rdb(n), nitrogenRule)) ++count;
    }
    return count;
  }

 private:
  const UnitMasses& masses_;
  const Sums& sums_;
  double c_;
  double afterO_;
};

/// How many atoms of `unitMass` the mass has room for. Stays below the end of Int64, so that a
/// loop can count one further.
std::int64_t MaxCount(double mass, double unitMass) {
  return std::min(Truncate(mass / unitMass), std::numeric_limits<std::int64_t>::max() - 1);
}

/// Whether an atom of C, O or N more, and so much less H, never takes from RDB.
bool RdbNeverFalls(const Elements& elements) {
  return elements.valence[kC] >= 2 && elements.valence[kN] >= 2 && elements.valence[kH] <= 2;
}

/// Pairs of C and O to make room for: about half of the box of their counts leave mass for H.
std::size_t ExpectedPairs(std::int64_t maxC, std::int64_t maxO, std::int64_t limit) {
  const double pairs = (static_cast<double>(maxC) + 2) * (static_cast<double>(maxO) + 2) / 2;
  return static_cast<std::size_t>(std::min(Truncate(pairs), limit));
}

}  // namespace

Found Search(const SearchInput& input) {
  assert(input.remainingMass > 0);
  Found found;
  const UnitMasses masses(input.elements, input.remainingMass);
  if (masses.ofC <= 0 || masses.ofO <= 0 || masses.ofN <= 0) return found;
  const std::int64_t maxC = MaxCount(masses.total, masses.ofC);
  const std::int64_t maxO = MaxCount(masses.total, masses.ofO);
  const std::int64_t maxN = MaxCount(masses.total, masses.ofN);
  found.series.reserve(ExpectedPairs(maxC, maxO, input.limits.rows));

  const Sums sums(input.elements, input.totals);
  const bool rdbNeverFalls = RdbNeverFalls(input.elements);
  found.allValid = rdbNeverFalls && !input.nitrogenRule;
  std::int64_t passesLeft = input.limits.passes;
  // Where RDB may fall, valid formulas can lie anywhere: there every N is looked at.
  Range ofC = {rdbNeverFalls ? maxN + 1 : 0, maxN + 1};
  Fall fallByC;
  Fall fallByO;
  for (std::int64_t c = 0; c <= maxC; ++c) {
    const double afterC = masses.AfterC(static_cast<double>(c));
    if (!(afterC >= 0)) break;
    Range range = ofC;
    for (std::int64_t o = 0; o <= maxO; ++o) {
      const double afterO = masses.AfterO(afterC, static_cast<double>(o));
      if (!(afterO >= 0)) break;
      // The more C or O, the less N has room, and the less N is needed for a valid formula.
      const Candidates candidates(masses, sums, static_cast<double>(c), afterO);
      candidates.Lower(range, o == 0 ? fallByC : fallByO);
      if (o == 0) ofC = range;
      const std::int64_t tried = range.Size();
      if (tried >= passesLeft) return {SearchEnd::kTooManyPasses, 0, {}, false};
      passesLeft -= 1 + tried;

      const std::int64_t valid =
          found.allValid ? tried : candidates.CountValid(range, input.nitrogenRule);
      found.rows += valid;
      if (found.rows > input.limits.rows) return {SearchEnd::kTooManyRows, 0, {}, false};
      if (valid > 0) found.series.push_back({c, o, range.first, range.end - 1});
    }
  }
  return found;
}

}  // namespace peakwright

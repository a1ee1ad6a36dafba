#pragma once

#include <cstdint>
#include <vector>

#include "engine/elements.h"
#include "engine/sums.h"

namespace peakwright {

/// How far a search may go.
struct SearchLimits {
  std::int64_t rows = 2'000'000;     ///< valid formulas
  std::int64_t passes = 20'000'000;  ///< pairs of C and O, and numbers of N, that are tried
};

/// What a search is given.
struct SearchInput {
  const Elements& elements;
  const AdditionalTotals& totals;
  std::int64_t remainingMass;  ///< u, above 0
  bool nitrogenRule;           ///< only formulas with a whole RDB
  SearchLimits limits;
};

/// The formulas of one number of C and one of O, with each number of N from `firstN` to `lastN`;
/// H makes up the rest of the mass.
struct FormulaSeries {
  std::int64_t c;
  std::int64_t o;
  std::int64_t firstN;
  std::int64_t lastN;
};

/// How a search ended: with all there is, or as one of its limits was passed.
enum class SearchEnd { kComplete, kTooManyRows, kTooManyPasses };

/// What a search found.
struct Found {
  SearchEnd end = SearchEnd::kComplete;
  std::int64_t rows = 0;              ///< number of valid formulas
  std::vector<FormulaSeries> series;  ///< in which they are, by rising C, then O
  bool allValid = false;              ///< all formulas of the series are valid
};

/// Finds the formulas of C, H, N and O that make up the remaining mass in unit masses and are
/// valid. Requires: the remaining mass is above 0. A unit mass of 0 or below for C, N or O allows
/// none. Where the end isn't kComplete, the rest is of no use.
Found Search(const SearchInput& input);

}  // namespace peakwright

#pragma once

#include <cstdint>

#include "engine/elements.h"
#include "engine/report.h"
#include "engine/sums.h"

namespace peakwright {

/// How far a search may go.
struct SearchLimits {
  std::int64_t rows = 2'000'000;     ///< rows of the listing
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

enum class SearchResult { kComplete, kTooManyRows, kTooManyPasses };

/// Appends a row to `listing` for every formula of C, H, N and O that makes up the remaining mass
/// in unit masses and is valid: by rising C, then O, then N. A unit mass of 0 or below for C, N or
/// O allows none; that of H counts as 1 whatever the table says. Where the result isn't kComplete,
/// the listing isn't either.
SearchResult Search(const SearchInput& input, Listing& listing);

}  // namespace peakwright

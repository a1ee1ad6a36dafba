#pragma once

#include <cstdint>

#include "engine/elements.h"
#include "engine/report.h"
#include "engine/sums.h"

namespace peakwright {

/// The most rows that a run lists.
inline constexpr std::int64_t kRowLimit = 2'000'000;

/// The most combinations that a search looks at: pairs of C and O, and numbers of N.
inline constexpr std::int64_t kPassLimit = 50'000'000;

/// What a search is given.
struct SearchInput {
  const Elements& elements;
  const AdditionalTotals& totals;
  std::int64_t remainingMass;  ///< u, above 0
  bool nitrogenRule;           ///< only formulas with a whole RDB
};

enum class SearchResult { kComplete, kTooManyRows, kTooManyPasses };

/// Appends a row to `listing` for every formula of C, H, N and O that makes up the remaining mass
/// in unit masses and has no negative RDB: by rising C, then O, then N. A unit mass of 0 or below
/// for C, N or O allows none; that of H counts as 1 whatever the table says. If the result isn't
/// kComplete, the listing isn't either.
SearchResult Search(const SearchInput& input, Listing& listing);

}  // namespace peakwright

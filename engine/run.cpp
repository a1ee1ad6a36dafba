#include "engine/run.h"

#include <cstdint>

#include "engine/elements.h"
#include "engine/number_text.h"
#include "engine/report.h"
#include "engine/search.h"
#include "engine/sums.h"

namespace peakwright {
namespace {

/// Takes the additional atoms off `remainingMass` and into the totals, with a summary line for each
/// element that has any.
AdditionalTotals TakeAdditionalAtoms(RunControls& controls, const Elements& elements,
                                     std::int64_t& remainingMass) {
  AdditionalTotals totals;
  for (std::size_t i = kFirstAdditional; i <= elements.count; ++i) {
    const int field = static_cast<int>(i - kFirstAdditional);
    const std::int64_t count = Truncate(Val(controls.CountText(field)));
    const auto atoms = static_cast<double>(count);
    remainingMass =
        Truncate(static_cast<double>(remainingMass) - double{elements.unitMass[i]} * atoms);
    totals.Add(Atom(elements, i), atoms);
    if (count > 0) controls.Print(Str(count) + " " + elements.elementName[i]);
  }
  return totals;
}

void PrintListing(RunControls& controls, const SearchInput& input) {
  const Found found = Search(input);
  if (input.nitrogenRule) controls.Print("Nitrogen rule applied:");

  const std::string mass = Str(input.remainingMass);
  switch (found.result) {
    case SearchResult::kComplete:
      controls.Print(Listing(input, found));
      if (found.rows == 0) controls.Print("There are no valid combinations.");
      break;
    case SearchResult::kTooManyRows:
      controls.Print("There are more valid combinations for mass " + mass + " than the limit of " +
                     Str(input.limits.rows) + ".");
      break;
    case SearchResult::kTooManyPasses:
      controls.Print("There are more combinations to try for mass " + mass + " than the limit of " +
                     Str(input.limits.passes) + ".");
      break;
  }
}

}  // namespace

void Module1::calculate(RunControls& controls, const SearchLimits& limits) {
  const Elements elements(controls.Table());
  std::int64_t remainingMass = Truncate(Val(controls.MassText()));
  controls.MassText(Str(remainingMass));

  AdditionalTotals totals;
  if (controls.AdditionalElements()) {
    totals = TakeAdditionalAtoms(controls, elements, remainingMass);
  }
  if (remainingMass > 0) {
    PrintListing(controls, {elements, totals, remainingMass, controls.NitrogenRule(), limits});
  } else {
    controls.Print("Insufficient mass remaining for C, H, N, or O.");
  }
  controls.Print("");
}

}  // namespace peakwright

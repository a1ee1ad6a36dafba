#include "engine/run.h"

#include <cstdint>

#include "engine/elements.h"
#include "engine/listing.h"
#include "engine/number_text.h"
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
    totals.Add(Element(elements, i), atoms);
    if (count > 0) controls.Print(Str(count) + " " + elements.elementName[i]);
  }
  return totals;
}

/// The sentence that a search without a listed formula ends with; empty after any other.
std::string Message(const SearchInput& input, const Found& found) {
  const std::string mass = Str(input.remainingMass);
  switch (found.end) {
    case SearchEnd::kComplete:
      return found.rows == 0 ? "There are no valid combinations." : "";
    case SearchEnd::kTooManyRows:
      return "There are more valid combinations for mass " + mass + " than the limit of " +
             Str(input.limits.rows) + ".";
    case SearchEnd::kTooManyPasses:
      return "There are more combinations to try for mass " + mass + " than the limit of " +
             Str(input.limits.passes) + ".";
  }
  return {};
}

/// Prints what the search finds, and tells it in `outcome`.
void PrintListing(RunControls& controls, const SearchInput& input, RunOutcome& outcome) {
  const Found found = Search(input);
  if (input.nitrogenRule) controls.Print("Nitrogen rule applied:");

  outcome.nitrogenRule = input.nitrogenRule;
  outcome.message = Message(input, found);
  if (found.end == SearchEnd::kComplete) {
    controls.Print(Listing(input, found));
    outcome.rows = found.rows;
  }
  if (!outcome.message.empty()) controls.Print(outcome.message);
}

}  // namespace

RunOutcome Module1::calculate(RunControls& controls, const SearchLimits& limits) {
  const Elements elements(controls.Table());
  std::int64_t remainingMass = Truncate(Val(controls.MassText()));
  controls.MassText(Str(remainingMass));
  RunOutcome outcome{.mass = remainingMass};

  AdditionalTotals totals;
  if (controls.AdditionalElements()) {
    totals = TakeAdditionalAtoms(controls, elements, remainingMass);
  }
  if (remainingMass > 0) {
    PrintListing(controls, {elements, totals, remainingMass, controls.NitrogenRule(), limits},
                 outcome);
  } else {
    outcome.message = "Insufficient mass remaining for C, H, N, or O.";
    controls.Print(outcome.message);
  }
  controls.Print("");
  return outcome;
}

}  // namespace peakwright

#pragma once

#include <string>
#include <string_view>

#include "engine/run.h"

/// What assistive tools are told beyond what stands on the screen.
namespace peakwright {

/// What a run came to: its mass, and how many combinations were listed or why none was.
std::string SpokenOutcome(const RunOutcome& outcome);

/// What the count field of the element `name` holds.
std::string CountDescription(std::string_view name);

/// What the editor's field under `heading` holds while the element `name` is edited.
std::string CellDescription(std::string_view heading, std::string_view name);

inline constexpr std::string_view kResultsCleared = "The results were cleared.";

/// What Undo or Redo made of the results.
constexpr std::string_view SpokenRestoration(bool wereEmpty, bool areEmpty) {
  if (areEmpty) return kResultsCleared;
  return wereEmpty ? "The results are back." : "The results were changed back.";
}

}  // namespace peakwright

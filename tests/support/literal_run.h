#pragma once

#include <cstdint>

#include "engine/run.h"

namespace peakwright {

/// A run as one reads it off the rules, with every loop to its end: slow, and sharing nothing with
/// the engine but Val. Gives up, with nothing printed of the listing, after `passLimit` passes of
/// the innermost loops; tells whether it came to the end.
bool LiteralRun(RunControls& controls, std::int64_t passLimit);

/// A number by a mask of the report, likewise.
std::string LiteralCell(float value, std::string_view mask);

}  // namespace peakwright

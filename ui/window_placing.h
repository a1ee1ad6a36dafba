#pragma once

#include "runtime/desktop_window.h"

namespace peakwright {

/// Moves `window` to the right of `anchor`, but not past the right edge of the main display.
void PlaceBeside(DesktopWindow& window, const DesktopWindow& anchor);

}  // namespace peakwright

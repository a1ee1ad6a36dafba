#include "ui/window_placing.h"

#include <algorithm>

#include "runtime/screen.h"

namespace peakwright {

void PlaceBeside(DesktopWindow& window, const DesktopWindow& anchor) {
  constexpr int kGap = 5;
  window.Left(std::min(anchor.Left() + anchor.Width() + kGap, Screen(0).Width() - window.Width()));
}

}  // namespace peakwright

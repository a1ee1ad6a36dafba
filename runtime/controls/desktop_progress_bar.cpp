#include "runtime/desktop_progress_bar.h"

#include <algorithm>
#include <cmath>

#include <QProgressBar>

namespace peakwright {
namespace {

// The toolkit counts in int, which bytes outgrow; it gets a share of this instead.
constexpr int kFull = 10000;

}  // namespace

DesktopProgressBar::DesktopProgressBar(DesktopWindow& window, const ControlLayout& layout)
    : DesktopUIControl(window, std::make_unique<QProgressBar>(), layout) {
  Native<QProgressBar>().setTextVisible(false);
  Update();
}

void DesktopProgressBar::Value(double value) {
  value_ = value;
  Update();
}

void DesktopProgressBar::MaximumValue(std::int64_t maximum) {
  maximum_ = maximum;
  Update();
}

void DesktopProgressBar::Update() {
  auto& bar = Native<QProgressBar>();
  if (maximum_ < 1) {
    bar.setRange(0, 0);
    return;
  }
  const double share = std::clamp(value_ / static_cast<double>(maximum_), 0.0, 1.0);
  bar.setRange(0, kFull);
  bar.setValue(static_cast<int>(std::lround(share * kFull)));
}

}  // namespace peakwright

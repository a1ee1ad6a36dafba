#pragma once

#include <cstdint>

#include "runtime/desktop_ui_control.h"

namespace peakwright {

/// A bar that fills up from the left as its value nears its maximum. Both can be set in any order.
class DesktopProgressBar : public DesktopUIControl {
 public:
  /// Begins with the value 0 of the maximum 100.
  DesktopProgressBar(DesktopWindow& window, const ControlLayout& layout);

  double Value() const { return value_; }
  /// Below 0 shows an empty bar, above the maximum a full one.
  void Value(double value);

  std::int64_t MaximumValue() const { return maximum_; }
  /// Below 1 shows a busy bar, which says nothing of how much is done.
  void MaximumValue(std::int64_t maximum);

 private:
  void Update();

  double value_ = 0;
  std::int64_t maximum_ = 100;
};

}  // namespace peakwright

#pragma once

#include <functional>

#include "runtime/desktop_ui_control.h"

namespace peakwright {

/// A box that the user ticks and unticks, with its caption beside it.
class DesktopCheckBox : public DesktopUIControl {
 public:
  DesktopCheckBox(DesktopWindow& window, const ControlLayout& layout);

  bool Value() const;
  /// Raises ValueChanged, as a click does, if the value is a new one.
  void Value(bool value);

  std::function<void()> ValueChanged;
};

}  // namespace peakwright

#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "runtime/desktop_ui_control.h"

namespace peakwright {

/// A push button. Its caption is shown as it is: an ampersand is no mnemonic.
class DesktopButton : public DesktopUIControl {
 public:
  DesktopButton(DesktopWindow& window, const ControlLayout& layout);

  std::string Caption() const;
  void Caption(std::string_view caption);

  /// Acts as a press by the user, and where the button isn't shown, too.
  void Press();

  std::function<void()> Pressed;
};

}  // namespace peakwright

#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/desktop_ui_control.h"

namespace peakwright {

/// A caption. Its text is shown as it is, without markup; what is too long for its box is cut off.
class DesktopLabel : public DesktopUIControl {
 public:
  DesktopLabel(DesktopWindow& window, const ControlLayout& layout);

  const std::string& Text() const { return text_; }
  void Text(std::string_view text);

  /// Makes this label's text, now and after each change, the accessible name of `control`.
  void Names(DesktopUIControl& control);

  /// Raised as a mouse button goes down on the label.
  std::function<bool(int x, int y)> MouseDown;

 private:
  bool multiline_;
  bool bold_;
  int fontSize_;
  std::string text_;
  std::vector<DesktopUIControl*> named_;
};

}  // namespace peakwright

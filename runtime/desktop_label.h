#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/desktop_ui_control.h"
#include "runtime/text_range.h"

namespace peakwright {

/// A caption. Its text is shown as it is, without markup, but for control characters and those that
/// turn the direction of text, which show as U+FFFD; what is too long for its box is cut off.
class DesktopLabel : public DesktopUIControl {
 public:
  DesktopLabel(DesktopWindow& window, const ControlLayout& layout);

  const std::string& Text() const { return text_; }
  /// `quoted` is somebody else's words within the text: if the whole doesn't fit into the label,
  /// they are cut short, so that the rest stays in view. Text and assistive tools keep them all.
  void Text(std::string_view text, TextRange quoted = {});

  /// Makes this the label of `control`: its text, now and after each change, is the accessible
  /// name.
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

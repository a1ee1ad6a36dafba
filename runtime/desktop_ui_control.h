#pragma once

#include <memory>
#include <string_view>

#include "runtime/layout.h"

class QWidget;

namespace peakwright {

class DesktopWindow;

/// A control in a window: its place, its visibility and its name for assistive tools.
class DesktopUIControl {
 public:
  DesktopUIControl(const DesktopUIControl&) = delete;
  DesktopUIControl& operator=(const DesktopUIControl&) = delete;
  virtual ~DesktopUIControl();

  int Left() const;  ///< From the left edge of the window's content, pixels at 100 %.
  int Top() const;   ///< From the top of the window's content.
  int Width() const;
  void Width(int pixels);  ///< Below 0 counts as 0.
  int Height() const;
  void Height(int pixels);  ///< Below 0 counts as 0.

  bool Visible() const;
  void Visible(bool visible);

  /// The name under which assistive tools show a control that has no caption of its own.
  void AccessibleName(std::string_view name);
  /// What assistive tools tell beside the name.
  void AccessibleDescription(std::string_view description);

 protected:
  /// Puts `widget` into `window` as `layout` says.
  DesktopUIControl(DesktopWindow& window, std::unique_ptr<QWidget> widget,
                   const ControlLayout& layout);

  /// The toolkit's control, which is of the kind that the constructor was given.
  template <class Widget>
  Widget& Native() const {
    return static_cast<Widget&>(*widget_);
  }

 private:
  friend struct ToolkitSide;

  std::unique_ptr<QWidget> widget_;
};

}  // namespace peakwright

#pragma once

#include <memory>
#include <string_view>

#include "runtime/layout.h"

class QFont;
class QWidget;

namespace peakwright {

class DesktopWindow;

/// A control in a window: its place, its visibility and its name for assistive tools.
class DesktopUIControl {
 public:
  DesktopUIControl(const DesktopUIControl&) = delete;
  DesktopUIControl& operator=(const DesktopUIControl&) = delete;
  virtual ~DesktopUIControl();

  int Left() const;
  int Top() const;
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

  /// The toolkit's object behind the control.
  QWidget* Native() const { return widget_.get(); }

 protected:
  /// Puts `widget` into `window` as `layout` says.
  DesktopUIControl(DesktopWindow& window, std::unique_ptr<QWidget> widget,
                   const ControlLayout& layout);

 private:
  std::unique_ptr<QWidget> widget_;
};

/// The interface font at `size` pixels; size 0 stands for the system's size, as far as it fits.
QFont SystemFont(int size, bool bold);

}  // namespace peakwright

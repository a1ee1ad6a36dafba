#pragma once

#include <memory>

#include "runtime/desktop_ui_control.h"

namespace peakwright {

/// A control whose text the user edits, in the colours of its layout whatever the appearance.
class DesktopTextControl : public DesktopUIControl {
 protected:
  DesktopTextControl(DesktopWindow& window, std::unique_ptr<QWidget> widget,
                     const ControlLayout& layout);
};

}  // namespace peakwright

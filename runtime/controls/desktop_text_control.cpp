#include "runtime/desktop_text_control.h"

#include <utility>

#include <QWidget>

#include "runtime/appearance/appearance.h"

namespace peakwright {

DesktopTextControl::DesktopTextControl(DesktopWindow& window, std::unique_ptr<QWidget> widget,
                                       const ControlLayout& layout)
    : DesktopUIControl(window, std::move(widget), layout) {
  FixFieldColors(Native<QWidget>(), layout.TextColor, layout.BackgroundColor);
}

}  // namespace peakwright

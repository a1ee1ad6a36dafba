#include "runtime/application/toolkit_side.h"

#include <utility>

#include "runtime/application/held_input.h"
#include "runtime/desktop_application.h"

namespace peakwright {

QWidget* ToolkitSide::DocumentWindow() { return DesktopApplication::Current().documentWindow_; }
void ToolkitSide::DocumentWindow(QWidget* window) {
  DesktopApplication::Current().documentWindow_ = window;
}

HeldInput& ToolkitSide::Input() { return *DesktopApplication::Current().input_; }

void ToolkitSide::RaiseInTurn(QObject& control, std::function<void()> handler) {
  DesktopApplication& application = DesktopApplication::Current();
  if (Input().IsHolding()) {
    Input().Keep(control, [&application, kept = std::move(handler)] { application.Raise(kept); });
  } else {
    application.Raise(handler);
  }
}

}  // namespace peakwright

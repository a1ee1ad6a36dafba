#include "runtime/application/toolkit_side.h"

#include <utility>

#include "runtime/application/held_input.h"
#include "runtime/desktop_application.h"
#include "runtime/desktop_menu.h"
#include "runtime/desktop_ui_control.h"
#include "runtime/desktop_window.h"

namespace peakwright {

QWidget* ToolkitSide::Of(const DesktopUIControl& control) { return control.widget_.get(); }
QWidget* ToolkitSide::Of(const DesktopWindow& window) { return window.Native(); }
QMenuBar* ToolkitSide::Of(const DesktopMenuBar& bar) { return bar.bar_.get(); }
QAction* ToolkitSide::Of(const DesktopMenuItem& item) { return item.action_.get(); }
QMenu& ToolkitSide::MenuOf(DesktopMenuItem& title) { return title.NativeMenu(); }
QWidget* ToolkitSide::ContentOf(const DesktopWindow& window) { return window.Content(); }
QWidget* ToolkitSide::DocumentWindow() { return DesktopWindow::Document(); }

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

#include "runtime/desktop_button.h"

#include <QPushButton>

#include "runtime/application/toolkit_side.h"
#include "runtime/desktop_application.h"
#include "runtime/desktop_window.h"
#include "runtime/text/toolkit_strings.h"

namespace peakwright {

DesktopButton::DesktopButton(DesktopWindow& window, const ControlLayout& layout)
    : DesktopUIControl(window, std::make_unique<QPushButton>(), layout) {
  auto& button = Native<QPushButton>();
  button.setFocusPolicy(layout.TabStop ? Qt::TabFocus : Qt::NoFocus);
  Caption(layout.Text);
  QObject::connect(&button, &QPushButton::clicked, [this] {
    // An assistive tool can click what isn't on screen.
    if (Native<QWidget>().isVisible()) Press();
  });
  if (layout.Default) {
    button.setDefault(true);
    window.DefaultButton(button);
  }
  if (layout.Cancel) window.CancelButton(button);
}

std::string DesktopButton::Caption() const { return FromCaption(Native<QPushButton>().text()); }

void DesktopButton::Caption(std::string_view caption) {
  Native<QPushButton>().setText(ToCaption(caption));
}

void DesktopButton::Press() { ToolkitSide::RaiseInTurn(Native<QWidget>(), Pressed); }

}  // namespace peakwright

#include "runtime/desktop_button.h"

#include <QPushButton>

#include "runtime/caption_text.h"
#include "runtime/desktop_application.h"
#include "runtime/desktop_window.h"

namespace peakwright {

DesktopButton::DesktopButton(DesktopWindow& window, const ControlLayout& layout)
    : DesktopUIControl(window, std::make_unique<QPushButton>(), layout) {
  auto& button = static_cast<QPushButton&>(*Native());
  button.setFocusPolicy(Qt::TabFocus);
  Caption(layout.Text);
  QObject::connect(&button, &QPushButton::clicked,
                   [this] { DesktopApplication::Current().RaiseInTurn(*Native(), Pressed); });
  if (layout.Default) {
    button.setDefault(true);
    window.DefaultButton(button);
  }
  if (layout.Cancel) window.CancelButton(button);
}

std::string DesktopButton::Caption() const {
  return FromCaption(static_cast<QPushButton&>(*Native()).text());
}

void DesktopButton::Caption(std::string_view caption) {
  static_cast<QPushButton&>(*Native()).setText(ToCaption(caption));
}

void DesktopButton::Press() { static_cast<QPushButton&>(*Native()).click(); }

}  // namespace peakwright

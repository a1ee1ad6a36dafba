#include "runtime/desktop_text_field.h"

#include <limits>

#include <QLineEdit>

#include "runtime/appearance.h"
#include "runtime/caption_text.h"

namespace peakwright {

DesktopTextField::DesktopTextField(DesktopWindow& window, const ControlLayout& layout)
    : DesktopUIControl(window, std::make_unique<QLineEdit>(), layout) {
  auto& field = static_cast<QLineEdit&>(*Native());
  field.setMaxLength(std::numeric_limits<int>::max());
  field.setFrame(layout.HasBorder);
  FixFieldColors(field, layout.TextColor, layout.BackgroundColor);
  Text(layout.Text);
}

std::string DesktopTextField::Text() const {
  return static_cast<QLineEdit&>(*Native()).text().toStdString();
}

void DesktopTextField::Text(std::string_view text) {
  auto& field = static_cast<QLineEdit&>(*Native());
  field.setText(ToQString(text));
  if (field.window()->focusWidget() == &field) {
    field.selectAll();
  } else {
    field.home(false);
  }
}

}  // namespace peakwright

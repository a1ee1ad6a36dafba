#include "runtime/desktop_text_field.h"

#include <limits>

#include <QLineEdit>

#include "runtime/text/toolkit_strings.h"

namespace peakwright {

DesktopTextField::DesktopTextField(DesktopWindow& window, const ControlLayout& layout)
    : DesktopTextControl(window, std::make_unique<QLineEdit>(), layout) {
  auto& field = Native<QLineEdit>();
  field.setMaxLength(std::numeric_limits<int>::max());
  field.setFrame(layout.HasBorder);
  Text(layout.Text);
}

std::string DesktopTextField::Text() const { return Native<QLineEdit>().text().toStdString(); }

void DesktopTextField::Text(std::string_view text) {
  auto& field = Native<QLineEdit>();
  field.setText(ToQString(text));
  if (field.window()->focusWidget() == &field) {
    field.selectAll();
  } else {
    field.home(false);
  }
}

}  // namespace peakwright

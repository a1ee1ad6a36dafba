#include "runtime/desktop_text_field.h"

#include <limits>

#include <QFocusEvent>
#include <QLineEdit>

#include "runtime/text/toolkit_strings.h"

namespace peakwright {
namespace {

class NativeField : public QLineEdit {
 protected:
  /// Whoever comes back from a menu types on where they were: the menu bar is as little another
  /// control as another window is.
  void focusOutEvent(QFocusEvent* event) override {
    const bool isForMenus = event->reason() == Qt::MenuBarFocusReason;
    QFocusEvent leaving(event->type(), isForMenus ? Qt::PopupFocusReason : event->reason());
    QLineEdit::focusOutEvent(&leaving);
  }
};

}  // namespace

DesktopTextField::DesktopTextField(DesktopWindow& window, const ControlLayout& layout)
    : DesktopTextControl(window, std::make_unique<NativeField>(), layout) {
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

#include "runtime/speech/accessible_text_field.h"

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QFontMetrics>
#include <QLineEdit>
#include <QTextLayout>

#include "runtime/speech/accessible_text.h"

namespace peakwright {
namespace {

class AccessibleTextField : public AccessibleText {
 public:
  explicit AccessibleTextField(QLineEdit& field)
      : AccessibleTextField(field, field, QAccessible::EditableText) {}

  using AccessibleText::text;
  int characterCount() const override { return static_cast<int>(Shown().size()); }
  QString text(int start, int end) const override {
    return Shown().mid(Within(start), Within(end) - Within(start));
  }

  int cursorPosition() const override { return field_.cursorPosition(); }
  void selection(int index, int* start, int* end) const override {
    const bool selected = index == 0 && field_.hasSelectedText();
    *start = selected ? field_.selectionStart() : 0;
    *end = selected ? field_.selectionEnd() : 0;
  }

  QRect characterRect(int offset) const override {
    const QFontMetrics metrics = field_.fontMetrics();
    const auto advance = [&](int end) { return metrics.horizontalAdvance(text(0, end)); };
    const QRect cursor = field_.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const int left = cursor.center().x() - advance(cursorPosition()) + advance(offset);
    return {field_.mapToGlobal(QPoint(left, cursor.top())),
            QSize(advance(offset + 1) - advance(offset), cursor.height())};
  }
  int offsetAtPoint(const QPoint& point) const override {
    return field_.cursorPositionAt(field_.mapFromGlobal(point));
  }
  void scrollToSubstring(int start, int) override { setCursorPosition(start); }

 protected:
  AccessibleTextField(QWidget& control, QLineEdit& field, QAccessible::Role role)
      : AccessibleText(control, role), field_(field) {}

 private:
  /// What stands on the screen; of a secret its dots.
  QString Shown() const { return field_.displayText(); }

  Span UnitAround(int offset, QAccessible::TextBoundaryType type) const override {
    if (type != QAccessible::WordBoundary) return {0, characterCount()};
    return WordAround(QTextLayout(Shown()), offset);
  }
  void Select(int start, int end) override { field_.setSelection(start, end - start); }
  void ReplaceSelection(const QString& text) override { field_.insert(text); }

  QLineEdit& field_;
};

/// A field with arrows, which the dialogs for printing have.
class AccessibleSpinBox : public AccessibleTextField, public QAccessibleValueInterface {
 public:
  AccessibleSpinBox(QAbstractSpinBox& box, QLineEdit& field)
      : AccessibleTextField(box, field, QAccessible::SpinBox), box_(box) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return AccessibleTextField::interface_cast(type);
  }

  QVariant currentValue() const override { return box_.property("value"); }
  void setCurrentValue(const QVariant& value) override { box_.setProperty("value", value); }
  QVariant maximumValue() const override { return box_.property("maximum"); }
  QVariant minimumValue() const override { return box_.property("minimum"); }
  QVariant minimumStepSize() const override { return box_.property("singleStep"); }

 private:
  QAbstractSpinBox& box_;
};

QAccessibleInterface* Make(const QString&, QObject* object) {
  if (auto* field = qobject_cast<QLineEdit*>(object)) return new AccessibleTextField(*field);
  auto* box = qobject_cast<QAbstractSpinBox*>(object);
  auto* field = box == nullptr ? nullptr : box->findChild<QLineEdit*>();
  return field == nullptr ? nullptr : new AccessibleSpinBox(*box, *field);
}

}  // namespace

void InstallAccessibleTextField() { QAccessible::installFactory(Make); }

}  // namespace peakwright

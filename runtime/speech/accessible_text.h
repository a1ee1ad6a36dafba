#pragma once

#include <utility>

#include <QAccessible>
#include <QAccessibleWidget>

class QTextLayout;

namespace peakwright {

/// A text control as assistive tools see it. Offsets are in UTF-16 units, as the toolkit's are; at
/// one that the text hasn't got nothing stands. Characters, words and lines leave no gaps: each
/// reaches to the start of the next, over the blanks or the line end between them. What isn't on
/// screen can be read and not be changed.
class AccessibleText : public QAccessibleWidget,
                       public QAccessibleTextInterface,
                       public QAccessibleEditableTextInterface {
 public:
  AccessibleText(QWidget& control, QAccessible::Role role) : QAccessibleWidget(&control, role) {}

  void* interface_cast(QAccessible::InterfaceType type) override;
  QAccessible::State state() const override;
  using QAccessibleTextInterface::text;
  using QAccessibleWidget::text;
  QString text(QAccessible::Text kind) const override;
  void setText(QAccessible::Text kind, const QString& text) override;

  int selectionCount() const override;
  void addSelection(int start, int end) override { SelectIfShown(start, end); }
  void removeSelection(int) override { setCursorPosition(cursorPosition()); }
  void setSelection(int, int start, int end) override { SelectIfShown(start, end); }
  void setCursorPosition(int offset) override { SelectIfShown(offset, offset); }

  QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                           int* end) const override;
  QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                       int* end) const override;
  QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                          int* end) const override;
  QString attributes(int offset, int* start, int* end) const override;

  void deleteText(int start, int end) override { replaceText(start, end, {}); }
  void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
  void replaceText(int start, int end, const QString& text) override;

 protected:
  /// Where something starts and the next of its kind does.
  using Span = std::pair<int, int>;

  /// The word of `text` that holds `offset`, as the keys go from word to word; its last one if
  /// `offset` is its end.
  static Span WordAround(const QTextLayout& text, int offset);

  /// An offset of the text: the nearest one.
  int Within(int offset) const;

 private:
  /// Of `type`, which has a meaning of its own in each control: word, line or paragraph. Requires:
  /// the text has the offset.
  virtual Span UnitAround(int offset, QAccessible::TextBoundaryType type) const = 0;
  /// Requires: the text has both offsets.
  virtual void Select(int start, int end) = 0;
  virtual void ReplaceSelection(const QString& text) = 0;

  bool Has(int offset) const { return offset >= 0 && offset <= characterCount(); }
  Span SpanAround(int offset, QAccessible::TextBoundaryType type) const;
  QString Tell(Span span, int* start, int* end) const;
  void SelectIfShown(int start, int end);
};

}  // namespace peakwright

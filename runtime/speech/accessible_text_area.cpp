#include "runtime/speech/accessible_text_area.h"

#include <algorithm>
#include <memory>
#include <tuple>
#include <utility>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>

#include "runtime/text/text_area_view.h"

namespace peakwright {
namespace {

int Within(const TextAreaView& view, int offset) {
  return std::clamp(offset, 0, view.TextLength());
}

QTextCursor CursorOver(const TextAreaView& view, int start, int end) {
  QTextCursor cursor(view.document());
  cursor.setPosition(Within(view, start));
  cursor.setPosition(Within(view, end), QTextCursor::KeepAnchor);
  return cursor;
}

QString TextBetween(const TextAreaView& view, int start, int end) {
  return CursorOver(view, start, end)
      .selectedText()
      .replace(QChar::LineSeparator, u'\n')
      .replace(QChar::ParagraphSeparator, u'\n');
}

void AnnounceChange(TextAreaView& view, int from, int removed, int added) {
  if (!QAccessible::isActive() || removed + added == 0) return;
  constexpr int kMostTold = 4096;
  // What went is told by its length, as the toolkit does.
  const QString went(std::min(removed, kMostTold), u' ');
  const QString came = TextBetween(view, from, from + std::min(added, kMostTold));
  if (removed == 0) {
    QAccessibleTextInsertEvent change(&view, from, came);
    QAccessible::updateAccessibility(&change);
  } else if (added == 0) {
    QAccessibleTextRemoveEvent change(&view, from, went);
    QAccessible::updateAccessibility(&change);
  } else {
    QAccessibleTextUpdateEvent change(&view, from, went, came);
    QAccessible::updateAccessibility(&change);
  }
}

/// Offsets are in UTF-16 units, as the toolkit's are. Lines and their like leave no gaps: each
/// reaches to the start of the next, over the line end or the blank where the text wraps.
class AccessibleTextArea : public QAccessibleWidget,
                           public QAccessibleTextInterface,
                           public QAccessibleEditableTextInterface {
 public:
  explicit AccessibleTextArea(TextAreaView& view)
      : QAccessibleWidget(&view, QAccessible::EditableText), view_(view) {
    view.Changed = [&view](int from, int removed, int added) {
      AnnounceChange(view, from, removed, added);
    };
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    if (type == QAccessible::EditableTextInterface) {
      return static_cast<QAccessibleEditableTextInterface*>(this);
    }
    return QAccessibleWidget::interface_cast(type);
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.editable = true;
    state.multiLine = true;
    state.selectableText = true;
    return state;
  }

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? text(0, characterCount()) : QAccessibleWidget::text(kind);
  }

  void selection(int index, int* start, int* end) const override {
    const QTextCursor cursor = view_.textCursor();
    const bool selected = index == 0 && cursor.hasSelection();
    *start = selected ? cursor.selectionStart() : 0;
    *end = selected ? cursor.selectionEnd() : 0;
  }
  int selectionCount() const override { return view_.textCursor().hasSelection() ? 1 : 0; }
  void addSelection(int start, int end) override { Select(start, end); }
  void removeSelection(int) override { setCursorPosition(cursorPosition()); }
  void setSelection(int, int start, int end) override { Select(start, end); }
  int cursorPosition() const override { return view_.textCursor().position(); }
  void setCursorPosition(int offset) override { Select(offset, offset); }
  int characterCount() const override { return view_.TextLength(); }

  QString text(int start, int end) const override { return TextBetween(view_, start, end); }

  QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                           int* end) const override {
    return Unit(UnitAround(offset, type).first - 1, type, start, end);
  }
  QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                       int* end) const override {
    return Unit(offset, type, start, end);
  }
  QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                          int* end) const override {
    const int next = UnitAround(offset, type).second;
    return Unit(next < characterCount() ? next : kNowhere, type, start, end);
  }

  QRect characterRect(int offset) const override {
    QTextCursor cursor = CursorOver(offset, offset);
    const QRect left = view_.cursorRect(cursor);
    cursor.movePosition(QTextCursor::NextCharacter);
    const QRect right = view_.cursorRect(cursor);
    const int width = right.top() == left.top() ? right.left() - left.left() : left.width();
    return {view_.viewport()->mapToGlobal(left.topLeft()), QSize(width, left.height())};
  }
  int offsetAtPoint(const QPoint& point) const override {
    return view_.cursorForPosition(view_.viewport()->mapFromGlobal(point)).position();
  }
  void scrollToSubstring(int start, int) override {
    view_.verticalScrollBar()->setValue(view_.LineNumber(Within(start)));
  }
  QString attributes(int, int* start, int* end) const override {
    *start = 0;
    *end = characterCount();
    return {};
  }

  void deleteText(int start, int end) override { replaceText(start, end, {}); }
  void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
  void replaceText(int start, int end, const QString& text) override {
    Select(start, end);
    view_.InsertText(text.toStdString());
  }

 private:
  static constexpr int kNowhere = -1;

  int Within(int offset) const { return peakwright::Within(view_, offset); }
  QTextCursor CursorOver(int start, int end) const {
    return peakwright::CursorOver(view_, start, end);
  }
  void Select(int start, int end) { view_.setTextCursor(CursorOver(start, end)); }

  QString Unit(int offset, QAccessible::TextBoundaryType type, int* start, int* end) const {
    *start = kNowhere;
    *end = kNowhere;
    if (offset < 0 || offset > characterCount()) return {};
    std::tie(*start, *end) = UnitAround(offset, type);
    return text(*start, *end);
  }

  std::pair<int, int> UnitAround(int offset, QAccessible::TextBoundaryType type) const {
    offset = Within(offset);
    switch (type) {
      case QAccessible::CharBoundary:
        return {offset, Within(offset + 1)};
      case QAccessible::WordBoundary:
        return WordAround(offset);
      case QAccessible::LineBoundary:
        return view_.LineAround(offset);
      case QAccessible::SentenceBoundary:
      case QAccessible::ParagraphBoundary:
        return ParagraphAround(offset);
      case QAccessible::NoBoundary:
        break;
    }
    return {0, characterCount()};
  }

  std::pair<int, int> WordAround(int offset) const {
    QTextCursor cursor = CursorOver(offset, offset);
    cursor.movePosition(QTextCursor::StartOfWord);
    const int start = cursor.position();
    cursor.movePosition(QTextCursor::NextWord);
    return {start, std::max(cursor.position(), Within(offset + 1))};
  }

  /// From one line end to the next.
  std::pair<int, int> ParagraphAround(int offset) const {
    const QTextBlock block = view_.document()->findBlock(offset);
    const QString text = block.text();
    const qsizetype inside = offset - block.position();
    const qsizetype start = text.left(inside).lastIndexOf(QChar::LineSeparator) + 1;
    const qsizetype lineEnd = text.indexOf(QChar::LineSeparator, inside);
    const qsizetype end = lineEnd < 0 ? block.length() : lineEnd + 1;
    return {block.position() + static_cast<int>(start),
            Within(block.position() + static_cast<int>(end))};
  }

  TextAreaView& view_;
};

QAccessibleInterface* Make(const QString&, QObject* object) {
  auto* view = dynamic_cast<TextAreaView*>(object);
  return view == nullptr ? nullptr : new AccessibleTextArea(*view);
}

}  // namespace

void InstallAccessibleTextArea() { QAccessible::installFactory(Make); }

}  // namespace peakwright

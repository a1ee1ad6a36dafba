#include "runtime/speech/accessible_text_area.h"

#include <algorithm>

#include <QAccessible>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>

#include "runtime/speech/accessible_text.h"
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
  if (!QAccessible::isActive()) return;
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

class AccessibleTextArea : public AccessibleText {
 public:
  explicit AccessibleTextArea(TextAreaView& view)
      : AccessibleText(view, QAccessible::EditableText), view_(view) {
    view.Changed = [&view](int from, int removed, int added) {
      AnnounceChange(view, from, removed, added);
    };
  }

  QAccessible::State state() const override {
    QAccessible::State state = AccessibleText::state();
    state.multiLine = true;
    return state;
  }

  using AccessibleText::text;
  int characterCount() const override { return view_.TextLength(); }
  QString text(int start, int end) const override { return TextBetween(view_, start, end); }

  int cursorPosition() const override { return view_.textCursor().position(); }
  void selection(int index, int* start, int* end) const override {
    const QTextCursor cursor = view_.textCursor();
    const bool selected = index == 0 && cursor.hasSelection();
    *start = selected ? cursor.selectionStart() : 0;
    *end = selected ? cursor.selectionEnd() : 0;
  }

  QRect characterRect(int offset) const override {
    QTextCursor cursor = CursorOver(view_, offset, offset);
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

 private:
  Span UnitAround(int offset, QAccessible::TextBoundaryType type) const override {
    if (type == QAccessible::LineBoundary) return view_.LineAround(offset);
    if (type != QAccessible::WordBoundary) return view_.RowAround(offset);
    const QTextBlock block = view_.document()->findBlock(offset);
    const auto [start, end] = WordIn(block, offset - block.position());
    return {block.position() + start, Within(block.position() + end)};
  }

  /// The last word of a block goes on over the block's end.
  static Span WordIn(const QTextBlock& block, int offset) {
    const auto [start, end] = WordAround(*block.layout(), offset);
    return {start, end == block.length() - 1 ? block.length() : end};
  }

  void Select(int start, int end) override { view_.setTextCursor(CursorOver(view_, start, end)); }
  void ReplaceSelection(const QString& text) override { view_.InsertText(text.toStdString()); }

  TextAreaView& view_;
};

QAccessibleInterface* Make(const QString&, QObject* object) {
  auto* view = dynamic_cast<TextAreaView*>(object);
  return view == nullptr ? nullptr : new AccessibleTextArea(*view);
}

}  // namespace

void InstallAccessibleTextArea() { QAccessible::installFactory(Make); }

}  // namespace peakwright

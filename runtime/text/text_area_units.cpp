// What clicks and page keys take: rows, what stands between blanks, and the lines in view. The
// toolkit knows blocks where the user sees rows, and words that end at a point.

#include <algorithm>

#include <QMouseEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

#include "runtime/text/document_text.h"
#include "runtime/text/text_area_view.h"

namespace peakwright {

void TextAreaView::mousePressEvent(QMouseEvent* event) {
  const QTextCursor former = textCursor();
  const int top = verticalScrollBar()->value();
  const int at = cursorForPosition(event->pos()).position();
  QPlainTextEdit::mousePressEvent(event);
  if (event->button() != Qt::LeftButton) return;
  if (event->modifiers() == Qt::ShiftModifier) {
    ExtendTaken(at);
  } else if (textCursor().hasSelection() && textCursor() != former) {  // the third click
    Take(&TextAreaView::RowAround, at, top);
  } else {
    unit_ = nullptr;
  }
}

void TextAreaView::mouseDoubleClickEvent(QMouseEvent* event) {
  const int top = verticalScrollBar()->value();
  const int at = cursorForPosition(event->pos()).position();
  QPlainTextEdit::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton) Take(&TextAreaView::BetweenBlanks, at, top);
}

void TextAreaView::mouseMoveEvent(QMouseEvent* event) {
  QPlainTextEdit::mouseMoveEvent(event);
  if ((event->buttons() & Qt::LeftButton) != 0)
    ExtendTaken(cursorForPosition(event->pos()).position());
}

std::pair<int, int> TextAreaView::RowAround(int position) const {
  const QTextBlock block = document()->findBlock(position);
  const QString text = block.text();
  const qsizetype inside = position - block.position();
  const qsizetype start = QStringView(text).first(inside).lastIndexOf(kLineFeed) + 1;
  const qsizetype lineEnd = text.indexOf(kLineFeed, inside);
  const int next = lineEnd < 0 ? block.length() : static_cast<int>(lineEnd) + 1;
  return {block.position() + static_cast<int>(start),
          std::min(block.position() + next, TextLength())};
}

void TextAreaView::TurnPage(int direction) {
  QTextCursor cursor = textCursor();
  const int top = verticalScrollBar()->value();
  const int page = std::max(verticalScrollBar()->pageStep(), 1);
  const int current = LineNumber(cursor.position());
  const bool isInView = current >= top && current < top + page;
  const QTextLine former = LaidOutLine(cursor.block(), cursor.position());
  const int x = cursor.verticalMovementX() >= 0
                    ? cursor.verticalMovementX()
                    : static_cast<int>(former.cursorToX(cursor.positionInBlock()));
  verticalScrollBar()->setValue(top + direction * page);
  const int target =
      std::clamp((isInView ? current : top) + direction * page, 0, document()->lineCount() - 1);
  const QTextBlock block = document()->findBlockByLineNumber(target);
  LaidOutLine(block, block.position());
  const QTextLine line = block.layout()->lineAt(target - block.firstLineNumber());
  cursor.setPosition(block.position() + line.xToCursor(x));
  cursor.setVerticalMovementX(x);
  setTextCursor(cursor);
}

std::pair<int, int> TextAreaView::BetweenBlanks(int position) const {
  const auto [start, next] = RowAround(position);
  const QTextBlock block = document()->findBlock(position);
  const QString row = block.text().mid(start - block.position(), next - start);
  const auto isBlank = [&](int at) { return at >= row.size() || row[at].isSpace(); };
  int first = position - start;
  if (isBlank(first) && first > 0) --first;  // behind the last character
  const bool blank = isBlank(first);
  int last = first;
  while (first > 0 && isBlank(first - 1) == blank) --first;
  while (last < row.size() && isBlank(last) == blank && row[last] != kLineFeed) ++last;
  return {start + first, start + last};
}

void TextAreaView::Take(Unit unit, int position, int top) {
  unit_ = unit;
  taken_ = textCursor();
  const auto [start, end] = (this->*unit)(position);
  taken_.setPosition(start);
  taken_.setPosition(end, QTextCursor::KeepAnchor);
  setTextCursor(taken_);
  verticalScrollBar()->setValue(top);
}

void TextAreaView::ExtendTaken(int position) {
  if (unit_ == nullptr) return;
  const auto [start, end] = (this->*unit_)(position);
  const bool upwards = start < taken_.selectionStart();
  QTextCursor cursor = taken_;
  cursor.setPosition(upwards ? taken_.selectionEnd() : taken_.selectionStart());
  cursor.setPosition(upwards ? start : end, QTextCursor::KeepAnchor);
  setTextCursor(cursor);
}

void TextAreaView::ForgetClicks() {
  // Until the next plain click the toolkit, too, extends what a double click took, in whichever
  // document that was.
  constexpr QPointF kFarOff(-10'000, -10'000);
  QMouseEvent press(QEvent::MouseButtonPress, kFarOff, kFarOff, Qt::LeftButton, Qt::LeftButton, {});
  QMouseEvent release(QEvent::MouseButtonRelease, kFarOff, kFarOff, Qt::LeftButton, {}, {});
  mousePressEvent(&press);
  mouseReleaseEvent(&release);
}

}  // namespace peakwright

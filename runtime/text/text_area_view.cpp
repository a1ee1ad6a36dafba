#include "runtime/text/text_area_view.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <stdexcept>
#include <utility>

#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>

#include "runtime/memory.h"
#include "runtime/text/document_text.h"
#include "runtime/text/line_counting_layout.h"

namespace peakwright {
namespace {

// Positions in a document are ints; what is undone stays in its buffer.
constexpr std::size_t kMostCharacters = 1'000'000'000;
constexpr std::size_t kLongText = 1'000'000;  // Shorter ones go into the smallest memory.

/// What the toolkit's buffer takes that has come to hold so many characters one by one.
std::size_t BufferBytes(std::size_t characters) {
  return std::bit_ceil(characters * sizeof(QChar));
}

// A line is laid out anew with each key that is typed in it.
constexpr std::int64_t kLongestLine = 1'500'000;

bool EndsLine(QChar unit) { return unit == kLineFeed || unit == QChar::ParagraphSeparator; }

/// Whether a key may take away a line end, or what is selected.
bool Deletes(const QKeyEvent& event) {
  return event.key() == Qt::Key_Delete || event.key() == Qt::Key_Backspace;
}

bool Types(const QKeyEvent& event) {
  return !event.text().isEmpty() && event.text().front().isPrint();
}

/// Makes one step of Undo of what a cursor does meanwhile.
class EditBlock {
 public:
  EditBlock(QTextCursor& cursor, bool joinsPrevious) : cursor_(cursor) {
    if (joinsPrevious) {
      cursor.joinPreviousEditBlock();
    } else {
      cursor.beginEditBlock();
    }
  }
  ~EditBlock() { cursor_.endEditBlock(); }
  EditBlock(const EditBlock&) = delete;
  EditBlock& operator=(const EditBlock&) = delete;

 private:
  QTextCursor& cursor_;
};

/// Keeps an area from following its scroll position meanwhile, which lays out all on the way.
class HeldStill {
 public:
  explicit HeldStill(QWidget& viewport) : viewport_(viewport) {
    viewport_.setUpdatesEnabled(false);
  }
  ~HeldStill() { viewport_.setUpdatesEnabled(true); }
  HeldStill(const HeldStill&) = delete;
  HeldStill& operator=(const HeldStill&) = delete;

 private:
  QWidget& viewport_;
};

}  // namespace

TextAreaView::TextAreaView() {
  verticalScrollBar()->setAccessibleName(QStringLiteral("Vertical scroll bar"));
  setTabChangesFocus(true);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  Show(NewDocument());
}

TextAreaView::~TextAreaView() {
  // The shown document must outlive the control that shows it.
  setParent(nullptr);
  QPlainTextEdit::setDocument(nullptr);
}

std::string TextAreaView::Text() const { return TextOf(*document()); }

void TextAreaView::ReplaceText(std::string_view text) {
  if (text.empty() && document()->isEmpty()) return;
  RefuseLongLine(0, TextLength(), text);
  std::unique_ptr<QTextDocument> made = NewDocument();
  shown_->clearUndoRedoStacks(QTextDocument::RedoStack);
  std::unique_ptr<QTextDocument> replaced = std::move(shown_);
  Show(std::move(made));
  earlier_ = std::move(replaced);
  later_.reset();
  if (!text.empty()) InsertText(text);
}

void TextAreaView::InsertText(std::string_view text) {
  const QTextCursor cursor = textCursor();
  RefuseLongLine(cursor.selectionStart(), cursor.selectionEnd(), text);
  InsertText(text.size(), [text](const auto& insert) { insert(text); });
}

void TextAreaView::InsertText(std::size_t length, const TextPieces& pieces) {
  QTextCursor cursor = textCursor();
  const auto present = static_cast<std::size_t>(TextLength());
  const auto going = static_cast<std::size_t>(cursor.selectionEnd() - cursor.selectionStart());
  if (length + present - going > kMostCharacters) {
    throw std::length_error("The results area is full. Clear it to go on.");
  }
  // What is replaced stays in the buffer, for Undo.
  if (length > kLongText) RequireMemory(BufferBytes(present + length) - BufferBytes(present));
  AsOneStep([&] {
    const HeldStill held(*viewport());
    const int top = verticalScrollBar()->value();
    {
      const EditBlock block(cursor, document()->availableUndoSteps() > stepsBefore_);
      cursor.removeSelectedText();
      DocumentWriter writer(cursor);
      pieces([&writer](std::string_view piece) { writer.Write(piece); });
      writer.Finish();
    }
    setTextCursor(cursor);
    verticalScrollBar()->setValue(top);
  });
}

void TextAreaView::AsOneStep(const std::function<void()>& write) {
  if (isInStep_) {
    write();
    return;
  }
  const int anchor = textCursor().anchor();
  const int position = textCursor().position();
  const int top = verticalScrollBar()->value();
  stepsBefore_ = document()->availableUndoSteps();
  isInStep_ = true;
  try {
    write();
    isInStep_ = false;
  } catch (...) {
    isInStep_ = false;
    TakeBack(anchor, position, top);
    throw;
  }
}

void TextAreaView::TakeBack(int anchor, int position, int top) {
  const HeldStill held(*viewport());
  while (document()->availableUndoSteps() > stepsBefore_) document()->undo();
  document()->clearUndoRedoStacks(QTextDocument::RedoStack);
  QTextCursor cursor = textCursor();
  cursor.setPosition(anchor);
  cursor.setPosition(position, QTextCursor::KeepAnchor);
  setTextCursor(cursor);
  verticalScrollBar()->setValue(top);
}

int TextAreaView::LineNumber(int position) const {
  const QTextBlock block = document()->findBlock(position);
  const QTextLine line = LaidOutLine(block, position);
  return block.firstLineNumber() + (line.isValid() ? line.lineNumber() : 0);
}

std::pair<int, int> TextAreaView::LineAround(int position) const {
  const QTextBlock block = document()->findBlock(position);
  const QTextLine line = LaidOutLine(block, position);
  const int start = line.isValid() ? line.textStart() : 0;
  const int next = line.isValid() ? line.lineNumber() + 1 : 1;
  const int end = next < block.layout()->lineCount() ? block.layout()->lineAt(next).textStart()
                                                     : block.length();
  return {block.position() + start, std::min(block.position() + end, TextLength())};
}

void TextAreaView::Undo() {
  if (!CanUndo()) return;
  const int formerLength = TextLength();
  if (document()->isUndoAvailable()) {
    undo();
  } else {
    later_ = std::move(shown_);
    Show(std::move(earlier_));
    moveCursor(QTextCursor::End);
  }
  if (Restored) Restored(formerLength);
}

void TextAreaView::Redo() {
  if (!CanRedo()) return;
  const int formerLength = TextLength();
  if (document()->isRedoAvailable()) {
    redo();
  } else {
    earlier_ = std::move(shown_);
    Show(std::move(later_));
  }
  if (Restored) Restored(formerLength);
}

void TextAreaView::Cut() {
  copy();
  InsertText({});
}

void TextAreaView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Undo)) {
    Undo();
  } else if (event->matches(QKeySequence::Redo)) {
    Redo();
  } else if (event->matches(QKeySequence::InsertParagraphSeparator)) {
    InsertText("\r");
    ensureCursorVisible();
  } else if (event->matches(QKeySequence::Cut)) {
    Cut();
  } else if (event->matches(QKeySequence::DeleteEndOfLine)) {
    DeleteToRowEnd();
  } else if (event->matches(QKeySequence::MoveToPreviousPage)) {
    TurnPage(-1);
  } else if (event->matches(QKeySequence::MoveToNextPage)) {
    TurnPage(1);
  } else {
    const QTextCursor cursor = textCursor();
    const int beside = Deletes(*event) && !cursor.hasSelection() ? 1 : 0;
    if (Deletes(*event) || Types(*event)) {
      RefuseLongLine(cursor.selectionStart() - beside, cursor.selectionEnd() + beside,
                     Types(*event) ? event->text().toStdString() : std::string());
    }
    QPlainTextEdit::keyPressEvent(event);
  }
}

void TextAreaView::dropEvent(QDropEvent* event) {
  // The toolkit can't be stopped half way.
  const int at = cursorForPosition(event->position().toPoint()).position();
  RefuseLongLine(at, at, event->mimeData()->text().toStdString());
  QPlainTextEdit::dropEvent(event);
}

void TextAreaView::resizeEvent(QResizeEvent* event) {
  const int top = cursorForPosition(QPoint(0, 0)).position();
  const bool atTop = verticalScrollBar()->value() == 0;
  Layout().AreaWidth(viewport()->width());
  QPlainTextEdit::resizeEvent(event);
  if (event->oldSize().width() == event->size().width()) return;
  Recount();
  verticalScrollBar()->setValue(atTop ? 0 : LineNumber(top));
}

void TextAreaView::changeEvent(QEvent* event) {
  QPlainTextEdit::changeEvent(event);
  if (event->type() == QEvent::FontChange && shown_ != nullptr) Recount();
}

void TextAreaView::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu;
  const auto add = [&](const char* caption, QKeySequence::StandardKey key, bool canAct, auto act) {
    const QString keys = u'\t' + QKeySequence(key).toString(QKeySequence::NativeText);
    menu.addAction(QLatin1String(caption) + keys, this, act)->setEnabled(canAct);
  };
  const bool selected = textCursor().hasSelection();
  add("&Undo", QKeySequence::Undo, CanUndo(), &TextAreaView::Undo);
  add("&Redo", QKeySequence::Redo, CanRedo(), &TextAreaView::Redo);
  menu.addSeparator();
  add("Cu&t", QKeySequence::Cut, selected, &TextAreaView::Cut);
  add("&Copy", QKeySequence::Copy, selected, &QPlainTextEdit::copy);
  add("&Paste", QKeySequence::Paste, canPaste(), &QPlainTextEdit::paste);
  add("Delete", QKeySequence::Delete, selected, [this] { InsertText({}); });
  menu.addSeparator();
  add("Select All", QKeySequence::SelectAll, true, &QPlainTextEdit::selectAll);
  menu.exec(event->globalPos());
}

QMimeData* TextAreaView::createMimeDataFromSelection() const {
  auto copied = std::make_unique<QMimeData>();
  WithMemoryFor("copying", [&] {
    QString text = textCursor().selectedText();
    text.replace(QChar::ParagraphSeparator, u'\n').replace(kLineFeed, u'\n');
    copied->setText(text);
  });
  return copied.release();  // The caller's.
}

void TextAreaView::insertFromMimeData(const QMimeData* source) {
  if (!source->hasText()) return;
  WithMemoryFor("pasting", [&] {
    InsertText(source->text().replace(QStringLiteral("\r\n"), QStringLiteral("\n")).toStdString());
  });
  ensureCursorVisible();
}

std::unique_ptr<QTextDocument> TextAreaView::NewDocument() {
  auto made = std::make_unique<QTextDocument>();
  made->setDocumentLayout(new LineCountingLayout(made.get()));
  // A new step after an Undo leaves nothing to redo.
  connect(made.get(), &QTextDocument::undoCommandAdded, this, [this] { later_.reset(); });
  return made;
}

void TextAreaView::Show(std::unique_ptr<QTextDocument> made) {
  const int formerLength = TextLength();
  setDocument(made.get());
  shown_ = std::move(made);
  if (shown_->defaultFont() != font()) shown_->setDefaultFont(font());
  Recount();
  ForgetClicks();
  // The control would tell assistive tools of each change with its whole text.
  disconnect(document(), &QTextDocument::contentsChange, nullptr, nullptr);
  connect(document(), &QTextDocument::contentsChange, this,
          [this](int from, int removed, int added) { TellChange(from, removed, added); });
  TellChange(0, formerLength, TextLength());
}

void TextAreaView::TellChange(int from, int removed, int added) {
  if (Changed) Changed(from, removed, added);
}

void TextAreaView::RefuseLongLine(int from, int to, std::string_view text) const {
  from = std::clamp(from, 0, TextLength());
  to = std::clamp(to, 0, TextLength());
  std::int64_t length = from - RowAround(from).first;
  std::int64_t longest = 0;
  for (const char byte : text) {
    if (byte == '\n' || byte == '\r') {
      longest = std::max(longest, length);
      length = 0;
    } else if (static_cast<signed char>(byte) >= -64) {  // begins a character
      ++length;
    }
  }
  longest = std::max(longest, length + RowAround(to).second - to);
  if (longest > kLongestLine) {
    throw std::length_error("The results can't hold a line of more than 1,500,000 characters.");
  }
}

void TextAreaView::DeleteToRowEnd() {
  QTextCursor cursor = textCursor();
  if (!cursor.hasSelection()) {
    const int next = RowAround(cursor.position()).second;
    const bool toLineEnd =
        next - cursor.position() > 1 && EndsLine(document()->characterAt(next - 1));
    cursor.setPosition(toLineEnd ? next - 1 : next, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
  }
  InsertText({});
}

void TextAreaView::Recount() { Layout().CountAll(viewport()->width()); }

QTextLine TextAreaView::LaidOutLine(const QTextBlock& block, int position) const {
  Layout().blockBoundingRect(block);  // Lays the block out.
  return block.layout()->lineForTextPosition(position - block.position());
}

LineCountingLayout& TextAreaView::Layout() const {
  return static_cast<LineCountingLayout&>(*document()->documentLayout());
}

}  // namespace peakwright

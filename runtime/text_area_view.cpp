#include "runtime/text_area_view.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include <QHash>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QTimer>

#include "runtime/accessible_text_area.h"
#include "runtime/caption_text.h"

namespace peakwright {
namespace {

// The document's form of the text. A carriage return ends a block. A line feed is a line separator
// within a block, so that the thousands of rows of a listing share few blocks, which the toolkit
// holds and walks fast; only every kLinesPerBlock lines a line feed ends a block too, and is told
// from a carriage return by its format.
constexpr int kLinesPerBlock = 64;
constexpr QChar kLineFeed = QChar::LineSeparator;
constexpr int kIsLineFeed = QTextFormat::UserProperty + 1;

// Positions in a document are ints; what is undone stays in its buffer.
constexpr std::size_t kMostCharacters = 1'000'000'000;

/// The format of the character that ends a block. It goes and comes back with the character.
const QTextCharFormat& EndingWith(char lineEnd) {
  static const QTextCharFormat carriageReturn;
  static const QTextCharFormat lineFeed = [] {
    QTextCharFormat format;
    format.setProperty(kIsLineFeed, true);
    return format;
  }();
  return lineEnd == '\n' ? lineFeed : carriageReturn;
}

char LineEndBefore(const QTextBlock& block) {
  return block.charFormat().hasProperty(kIsLineFeed) ? '\n' : '\r';
}

/// One block's worth of text in the document's form.
QString ToDocumentForm(std::string_view text) {
  QString form = ToQString(text);
  form.replace(u'\n', kLineFeed);
  form.replace(QChar::ParagraphSeparator, kLineFeed);
  // Two noncharacters that the toolkit keeps for itself.
  form.replace(QChar(0xfdd0), QChar::ReplacementCharacter);
  form.replace(QChar(0xfdd1), QChar::ReplacementCharacter);
  return form;
}

/// Where a line feed ends the block that has `lines` lines already: the first one past the limit.
std::size_t EndOfFullBlock(std::string_view text, int lines) {
  std::size_t end = text.find('\n');
  while (end != std::string_view::npos && ++lines < kLinesPerBlock) end = text.find('\n', end + 1);
  return end;
}

void Insert(QTextCursor& cursor, std::string_view text) {
  int lines =
      1 + static_cast<int>(cursor.block().text().left(cursor.positionInBlock()).count(kLineFeed));
  std::size_t nextReturn = text.find('\r');
  for (std::size_t done = 0;;) {
    std::string_view rest = text.substr(done, nextReturn - done);
    rest = rest.substr(0, EndOfFullBlock(rest, lines - 1));
    cursor.insertText(ToDocumentForm(rest), QTextCharFormat());
    done += rest.size();
    if (done == text.size()) return;
    cursor.insertBlock(QTextBlockFormat(), EndingWith(text[done]));
    if (done == nextReturn) nextReturn = text.find('\r', done + 1);
    ++done;
    lines = 1;
  }
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

}  // namespace

/// Tells the document how many lines its blocks have before they are laid out. The toolkit counts
/// such a block as one line.
class TextAreaView::LineCountingLayout : public QPlainTextDocumentLayout {
 public:
  using QPlainTextDocumentLayout::QPlainTextDocumentLayout;

  void CountAll(int areaWidth) {
    const QFontMetricsF metrics(document()->defaultFont());
    room_ = areaWidth - 2 * document()->documentMargin();
    columns_ = static_cast<qsizetype>((room_ - 1) / metrics.horizontalAdvance(u'0'));
    linesOfShape_.clear();
    Count(document()->firstBlock(), document()->lastBlock());
  }

 protected:
  void documentChanged(int from, int removed, int added) override {
    QPlainTextDocumentLayout::documentChanged(from, removed, added);
    Count(document()->findBlock(from),
          document()->findBlock(std::min(from + added, document()->characterCount() - 1)));
  }

 private:
  void Count(QTextBlock block, const QTextBlock& last) {
    for (; block.isValid(); block = block.next()) {
      const QString text = block.text();
      int lines = 0;
      for (qsizetype start = 0, end = 0; end < text.size(); start = end + 1) {
        end = text.indexOf(kLineFeed, start);
        if (end < 0) end = text.size();
        lines += DisplayedLines(QStringView(text).mid(start, end - start));
      }
      block.setLineCount(std::max(lines, 1));
      if (block == last) break;
    }
    emit documentSizeChanged(documentSize());
  }

  /// The lines that the text between two line ends takes. Short ones that differ in digits only
  /// wrap alike, so that the rows of a listing cost one layout for each of their few shapes.
  int DisplayedLines(QStringView text) {
    constexpr qsizetype kLongestShape = 64;
    std::array<QChar, kLongestShape> shape;
    if (text.size() > kLongestShape) return LinesByLayout(text.toString());
    for (qsizetype i = 0; i < text.size(); ++i) {
      if (text[i] < u' ' || text[i] > u'~') return LinesByLayout(text.toString());
      shape[static_cast<std::size_t>(i)] = text[i].isDigit() ? u'0' : text[i];
    }
    if (text.size() <= columns_) return 1;
    const QString key = QString::fromRawData(shape.data(), text.size());
    const auto known = linesOfShape_.constFind(key);
    if (known != linesOfShape_.constEnd()) return *known;
    return *linesOfShape_.insert(QString(shape.data(), text.size()), LinesByLayout(key));
  }

  int LinesByLayout(const QString& text) const {
    QTextLayout layout(text, document()->defaultFont());
    layout.setTextOption(document()->defaultTextOption());
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
      line.setLineWidth(room_);
    }
    layout.endLayout();
    return layout.lineCount();
  }

  double room_ = 0;        // Width that a line can take, in pixels.
  qsizetype columns_ = 0;  // Characters that surely fit in a line.
  QHash<QString, int> linesOfShape_;
};

TextAreaView::TextAreaView() {
  InstallAccessibleTextArea();
  verticalScrollBar()->setAccessibleName(tr("Vertical scroll bar"));
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

std::string TextAreaView::Text() const {
  std::string text;
  for (QTextBlock block = document()->firstBlock(); block.isValid(); block = block.next()) {
    if (block.blockNumber() > 0) text += LineEndBefore(block);
    text += block.text().replace(kLineFeed, u'\n').toStdString();
  }
  return text;
}

void TextAreaView::ReplaceText(std::string_view text) {
  if (text.empty() && document()->isEmpty()) return;
  shown_->clearUndoRedoStacks(QTextDocument::RedoStack);
  std::unique_ptr<QTextDocument> replaced = std::move(shown_);
  Show(NewDocument());
  earlier_ = std::move(replaced);
  later_.reset();
  if (!text.empty()) InsertText(text);
}

void TextAreaView::InsertText(std::string_view text) {
  InsertText(text.size(), [text](const auto& insert) { insert(text); });
}

void TextAreaView::InsertText(std::size_t length, const TextPieces& pieces) {
  QTextCursor cursor = textCursor();
  const int staying = TextLength() - (cursor.selectionEnd() - cursor.selectionStart());
  if (length + static_cast<std::size_t>(staying) > kMostCharacters) {
    throw std::length_error("The results area is full. Clear it to go on.");
  }
  const int top = verticalScrollBar()->value();
  {
    const EditBlock block(cursor, joinsNext_);
    joinsNext_ = true;
    QTimer::singleShot(0, this, [this] { joinsNext_ = false; });
    cursor.removeSelectedText();
    pieces([&cursor](std::string_view piece) { Insert(cursor, piece); });
  }
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
  joinsNext_ = false;
  if (document()->isUndoAvailable()) {
    undo();
  } else if (earlier_ != nullptr) {
    later_ = std::move(shown_);
    Show(std::move(earlier_));
    moveCursor(QTextCursor::End);
  }
}

void TextAreaView::Redo() {
  if (document()->isRedoAvailable()) {
    redo();
  } else if (later_ != nullptr) {
    earlier_ = std::move(shown_);
    Show(std::move(later_));
    moveCursor(QTextCursor::Start);
  }
}

void TextAreaView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Undo)) {
    Undo();
  } else if (event->matches(QKeySequence::Redo)) {
    Redo();
  } else if (event->matches(QKeySequence::InsertParagraphSeparator)) {
    InsertText("\r");
    ensureCursorVisible();
  } else {
    QPlainTextEdit::keyPressEvent(event);
  }
}

void TextAreaView::resizeEvent(QResizeEvent* event) {
  const int top = cursorForPosition(QPoint(0, 0)).position();
  const bool atTop = verticalScrollBar()->value() == 0;
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
  const bool selected = textCursor().hasSelection();
  menu.addAction(tr("Undo"), this, &TextAreaView::Undo)->setEnabled(CanUndo());
  menu.addAction(tr("Redo"), this, &TextAreaView::Redo)->setEnabled(CanRedo());
  menu.addSeparator();
  menu.addAction(tr("Cut"), this, &QPlainTextEdit::cut)->setEnabled(selected);
  menu.addAction(tr("Copy"), this, &QPlainTextEdit::copy)->setEnabled(selected);
  menu.addAction(tr("Paste"), this, &QPlainTextEdit::paste)->setEnabled(canPaste());
  menu.addSeparator();
  menu.addAction(tr("Select All"), this, &QPlainTextEdit::selectAll);
  menu.exec(event->globalPos());
}

QMimeData* TextAreaView::createMimeDataFromSelection() const {
  QString text = textCursor().selectedText();
  text.replace(QChar::ParagraphSeparator, u'\n').replace(kLineFeed, u'\n');
  auto copied = std::make_unique<QMimeData>();
  copied->setText(text);
  return copied.release();
}

void TextAreaView::insertFromMimeData(const QMimeData* source) {
  if (!source->hasText()) return;
  InsertText(source->text().replace(QStringLiteral("\r\n"), QStringLiteral("\n")).toStdString());
  ensureCursorVisible();
}

std::unique_ptr<QTextDocument> TextAreaView::NewDocument() {
  auto made = std::make_unique<QTextDocument>();
  made->setDocumentLayout(std::make_unique<LineCountingLayout>(made.get()).release());
  made->setDefaultFont(font());
  // A new step after an Undo leaves nothing to redo.
  connect(made.get(), &QTextDocument::undoCommandAdded, this, [this] { later_.reset(); });
  return made;
}

void TextAreaView::Show(std::unique_ptr<QTextDocument> made) {
  const int formerLength = TextLength();
  setDocument(made.get());
  shown_ = std::move(made);
  shown_->setDefaultFont(font());
  Recount();
  AnnounceReplacement(*this, formerLength);
}

void TextAreaView::Recount() { Layout().CountAll(viewport()->width()); }

QTextLine TextAreaView::LaidOutLine(const QTextBlock& block, int position) const {
  Layout().blockBoundingRect(block);  // Lays the block out.
  return block.layout()->lineForTextPosition(position - block.position());
}

TextAreaView::LineCountingLayout& TextAreaView::Layout() const {
  return static_cast<LineCountingLayout&>(*document()->documentLayout());
}

}  // namespace peakwright

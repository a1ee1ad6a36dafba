#include "runtime/document_text.h"

#include <algorithm>
#include <cstdint>

#include <QTextBlock>

#include "runtime/caption_text.h"

namespace peakwright {
namespace {

// A block is laid out as a whole as soon as one of its lines is seen, so that what is shown first,
// the start of what was written, comes in short ones.
constexpr int kFirstLinesPerBlock = 32;
constexpr int kMostLinesPerBlock = 256;
constexpr int kIsLineFeed = QTextFormat::UserProperty + 1;

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

/// Of a text with other characters than ASCII, within one block.
QString ToDocumentForm(std::string_view text) {
  QString form = ToQString(text);
  form.replace(u'\n', kLineFeed);
  form.replace(QChar::ParagraphSeparator, kLineFeed);
  // Two noncharacters that the toolkit keeps for itself.
  form.replace(QChar(0xfdd0), QChar::ReplacementCharacter);
  form.replace(QChar(0xfdd1), QChar::ReplacementCharacter);
  return form;
}

struct Widened {
  bool ascii;
  bool plain;  // but for line feeds
};

/// Widens the bytes of a text within one block, in one pass that looks at many together.
Widened Widen(std::string_view text, QChar* to) {
  std::uint8_t bits = 0;
  std::uint8_t other = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto unit = static_cast<std::uint8_t>(text[i]);
    const bool isLineFeed = unit == '\n';
    to[i] = isLineFeed ? kLineFeed : QChar(unit);
    bits |= unit;
    other |= static_cast<std::uint8_t>(!isLineFeed & !IsPlain(unit));
  }
  return {bits < 0x80, other == 0};
}

}  // namespace

std::string TextOf(const QTextDocument& document) {
  std::string text;
  for (QTextBlock block = document.firstBlock(); block.isValid(); block = block.next()) {
    if (block.blockNumber() > 0) text += LineEndBefore(block);
    text += block.text().replace(kLineFeed, u'\n').toStdString();
  }
  return text;
}

DocumentWriter::DocumentWriter(QTextCursor& cursor)
    : cursor_(cursor), linesPerBlock_(kFirstLinesPerBlock), fromStart_(cursor.atBlockStart()) {
  known_.lines +=
      static_cast<int>(cursor.block().text().left(cursor.positionInBlock()).count(kLineFeed));
}

void DocumentWriter::Write(std::string_view piece) {
  std::size_t nextReturn = std::min(piece.find('\r'), piece.size());
  std::size_t gathered = 0;
  for (std::size_t start = 0;;) {
    const std::string_view upToReturn = piece.substr(start, nextReturn - start);
    const std::size_t length = std::min(upToReturn.find('\n'), upToReturn.size());
    lineLength_ += static_cast<int>(length);
    known_.longest = std::max(known_.longest, lineLength_);
    const std::size_t end = start + length;
    if (end == piece.size()) break;
    lineLength_ = 0;
    start = end + 1;
    if (end < nextReturn && known_.lines < linesPerBlock_) {
      ++known_.lines;
      continue;
    }
    Gather(piece.substr(gathered, end - gathered));
    EndBlock(piece[end]);
    gathered = start;
    if (end == nextReturn) nextReturn = std::min(piece.find('\r', start), piece.size());
  }
  Gather(piece.substr(gathered));
}

void DocumentWriter::Finish() {
  cursor_.insertText(gathered_, QTextCharFormat());
  gathered_.resize(0);
}

void DocumentWriter::Gather(std::string_view text) {
  const qsizetype former = gathered_.size();
  gathered_.resize(former + static_cast<qsizetype>(text.size()));
  const Widened widened = Widen(text, gathered_.data() + former);
  known_.plain = known_.plain && widened.plain;
  if (widened.ascii) return;
  gathered_.resize(former);
  gathered_ += ToDocumentForm(text);
}

void DocumentWriter::EndBlock(char lineEnd) {
  Finish();
  cursor_.insertBlock(QTextBlockFormat(), EndingWith(lineEnd));
  known_.written = true;
  if (fromStart_) BlockLines::Note(cursor_.block().previous(), known_);
  if (lineEnd == '\n') linesPerBlock_ = std::min(2 * linesPerBlock_, kMostLinesPerBlock);
  known_ = BlockLines();
  lineLength_ = 0;
  fromStart_ = true;
}

}  // namespace peakwright

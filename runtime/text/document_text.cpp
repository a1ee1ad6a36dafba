#include "runtime/text/document_text.h"

#include <algorithm>
#include <cstdint>

#include <QTextBlock>

#include "runtime/memory.h"
#include "runtime/text/toolkit_strings.h"

namespace peakwright {
namespace {

// A block is laid out as a whole as soon as one of its lines is seen, so that what is shown first,
// the start of what was written, comes in short ones.
constexpr int kFirstLinesPerBlock = 32;
constexpr int kMostLinesPerBlock = 256;
constexpr qsizetype kBetweenLooks = 1'000'000;  // characters, at memory
constexpr qsizetype kFullBlock = 32'768;  // Characters from which on a line feed ends it, too.
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
  bool plain;               // but for line feeds
  std::uint16_t lineFeeds;  // less so many times 65,536
};

/// Widens the bytes of a text within one block, in one pass that looks at many together.
Widened Widen(std::string_view text, QChar* to) {
  std::uint16_t bits = 0;
  std::uint16_t other = 0;
  std::uint16_t lineFeeds = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::uint16_t unit = static_cast<std::uint8_t>(text[i]);
    const bool isLineFeed = unit == '\n';
    to[i] = isLineFeed ? kLineFeed : QChar(unit);
    bits |= unit;
    other |= static_cast<std::uint16_t>(!isLineFeed & !IsPlain(unit));
    lineFeeds = static_cast<std::uint16_t>(lineFeeds + isLineFeed);
  }
  return {bits < 0x80, other == 0, lineFeeds};
}

/// How many lines of that length, by their ends, a text begins with: at most `most`.
std::size_t EvenLines(std::string_view text, std::size_t length, std::size_t most) {
  std::size_t lines = 0;
  std::size_t end = length;
  while (lines < most && end < text.size() && text[end] == '\n') {
    ++lines;
    end += length + 1;
  }
  return lines;
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
  while (!piece.empty()) {
    const std::string_view upToReturn = piece.substr(0, piece.find('\r'));
    piece.remove_prefix(upToReturn.size());
    WriteLines(upToReturn);
    if (piece.empty()) return;
    EndBlock('\r');
    piece.remove_prefix(1);
  }
}

void DocumentWriter::WriteLines(std::string_view text) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    if (const std::size_t length = GatherEvenLines(text, end); length > 0) {
      text.remove_prefix(length);
      continue;
    }
    lineLength_ += static_cast<int>(end);
    known_.longest = std::max(known_.longest, lineLength_);
    const bool ends = end < text.size();
    const bool endsBlock = ends && (known_.lines >= linesPerBlock_ ||
                                    gathered_.size() + static_cast<qsizetype>(end) >= kFullBlock);
    Gather(text.substr(0, ends && !endsBlock ? end + 1 : end));
    text.remove_prefix(ends ? end + 1 : end);
    if (endsBlock) {
      EndBlock('\n');
    } else if (ends) {
      ++known_.lines;
      lineLength_ = 0;
    }
  }
}

std::size_t DocumentWriter::GatherEvenLines(std::string_view text, std::size_t length) {
  constexpr std::size_t kMostGathered = 0xffff;  // so that line feeds are counted without a carry
  const auto room = static_cast<std::size_t>(std::max(linesPerBlock_ - known_.lines, 0));
  const std::size_t most =
      gathered_.size() < kFullBlock ? std::min(room, kMostGathered / (length + 1)) : 0;
  const std::size_t lines = maybeEven_ && lineLength_ == 0 ? EvenLines(text, length, most) : 0;
  if (lines < 2) return 0;
  const std::size_t gathered = lines * (length + 1);
  const qsizetype former = gathered_.size();
  const bool formerPlain = known_.plain;
  if (Gather(text.substr(0, gathered)) != lines) {  // there are shorter ones
    gathered_.resize(former);
    known_.plain = formerPlain;
    maybeEven_ = false;
    return 0;
  }
  known_.lines += static_cast<int>(lines);
  known_.longest = std::max(known_.longest, static_cast<int>(length));
  return gathered;
}

void DocumentWriter::Finish() {
  sinceLook_ += gathered_.size();
  if (sinceLook_ > kBetweenLooks) {
    RequireMemory();
    sinceLook_ = 0;
  }
  cursor_.insertText(gathered_, QTextCharFormat());
  gathered_.resize(0);
}

std::size_t DocumentWriter::Gather(std::string_view text) {
  const qsizetype former = gathered_.size();
  gathered_.resize(former + static_cast<qsizetype>(text.size()));
  const Widened widened = Widen(text, gathered_.data() + former);
  known_.plain = known_.plain && widened.plain;
  if (!widened.ascii) {
    gathered_.resize(former);
    gathered_ += ToDocumentForm(text);
  }
  return widened.lineFeeds;
}

void DocumentWriter::EndBlock(char lineEnd) {
  Finish();
  cursor_.insertBlock(QTextBlockFormat(), EndingWith(lineEnd));
  known_.written = true;
  if (fromStart_) BlockLines::Note(cursor_.block().previous(), known_);
  if (lineEnd == '\n') linesPerBlock_ = std::min(2 * linesPerBlock_, kMostLinesPerBlock);
  known_ = BlockLines();
  lineLength_ = 0;
  maybeEven_ = true;
  fromStart_ = true;
}

}  // namespace peakwright

#include "runtime/text/line_counting_layout.h"

#include <algorithm>
#include <utility>

#include <QFontMetricsF>
#include <QTextDocument>
#include <QTextLayout>

#include "runtime/text/document_text.h"

namespace peakwright {
namespace {

constexpr int kLongestShape = 64;
constexpr std::size_t kMostShapes = 100'000;  // more are no listings'
constexpr int kLongWord = 512;
constexpr int kLongLine = 2048;  // may hold words that cost the toolkit too much

bool IsLong(const QTextBlock& block) {
  const BlockLines* known = BlockLines::Of(block);
  return known != nullptr && known->longest > kLongLine;
}

QTextOption Wrapped(QTextOption option, QTextOption::WrapMode mode) {
  option.setWrapMode(mode);
  return option;
}

/// Calls `see` with each text between two line ends.
template <typename Function>
void ForEachLine(QStringView text, const Function& see) {
  for (qsizetype start = 0;;) {
    const qsizetype end = text.indexOf(kLineFeed, start);
    see(text.mid(start, end < 0 ? -1 : end - start));
    if (end < 0) return;
    start = end + 1;
  }
}

}  // namespace

void LineCountingLayout::AreaWidth(int pixels) {
  const QFontMetricsF metrics(document()->defaultFont());
  room_ = pixels - 2 * document()->documentMargin();
  columns_ = std::max(static_cast<int>((room_ - 1) / metrics.horizontalAdvance(u'0')), 0);
}

void LineCountingLayout::CountAll(int areaWidth) {
  AreaWidth(areaWidth);
  linesOfShape_.assign(shapes_.size(), 0);
  for (QTextBlock block = document()->firstBlock(); block.isValid(); block = block.next()) {
    BlockLines* known = BlockLines::Of(block);
    if (known == nullptr) known = &BlockLines::Note(block, BlockLines::Read(block.text()));
    block.setLineCount(DisplayedLines(block, *known));
  }
  TellSize();
}

void LineCountingLayout::documentChanged(int from, int removed, int added) {
  const QTextBlock first = document()->findBlock(from);
  const QTextBlock last =
      document()->findBlock(std::min(from + added, document()->characterCount() - 1));
  for (QTextBlock block = first; block.isValid(); block = block.next()) {
    BlockLines* known = BlockLines::Of(block);
    if (known == nullptr || !known->written) {
      known = &BlockLines::Note(block, BlockLines::Read(block.text()));
    }
    known->written = false;
    block.setLineCount(DisplayedLines(block, *known));
    if (block == last) break;
  }
  if (IsLong(first) && first == last && blocks_ == document()->blockCount()) {
    first.layout()->clearLayout();  // The toolkit would lay it out at once.
    emit update();
  } else {
    QPlainTextDocumentLayout::documentChanged(from, removed, added);
  }
  blocks_ = document()->blockCount();
  TellSize();
}

QRectF LineCountingLayout::blockBoundingRect(const QTextBlock& block) const {
  if (IsLong(block) && block.layout()->lineCount() == 0) BreakLines(*block.layout(), true);
  return QPlainTextDocumentLayout::blockBoundingRect(block);
}

int LineCountingLayout::DisplayedLines(const QTextBlock& block, BlockLines& known) {
  if (known.plain && known.longest <= columns_) return known.lines;
  if (known.shapes.empty()) {
    const bool hasShapes =
        known.plain && known.longest <= kLongestShape && shapes_.size() < kMostShapes;
    if (!hasShapes) return WrappedLines(block.text());
    known.shapes = ShapesIn(block.text());
  }
  int lines = 0;
  for (const auto& [shape, count] : known.shapes) lines += count * LinesOfShape(shape);
  return lines;
}

int LineCountingLayout::WrappedLines(const QString& text) const {
  int lines = 0;
  ForEachLine(text, [&](QStringView line) {
    const bool fits = line.size() <= columns_ && BlockLines::Read(line).plain;
    lines += fits ? 1 : LinesByLayout(line.toString());
  });
  return lines;
}

std::vector<std::pair<int, int>> LineCountingLayout::ShapesIn(QString text) {
  for (QChar& each : text) {
    char16_t& unit = each.unicode();
    const bool isDigit = (unit >= u'0') & (unit <= u'9');  // no branch: many are looked at together
    unit = isDigit ? u'0' : unit;
  }
  std::vector<std::pair<int, int>> shapes;
  ForEachLine(text, [&](QStringView line) {
    const int shape = NumberOfShape(line);
    // The same shapes come in a row.
    const auto known = std::find_if(shapes.rbegin(), shapes.rend(),
                                    [shape](const auto& entry) { return entry.first == shape; });
    if (known == shapes.rend()) {
      shapes.emplace_back(shape, 1);
    } else {
      ++known->second;
    }
  });
  return shapes;
}

int LineCountingLayout::NumberOfShape(QStringView shape) {
  if (lastShape_ < shapes_.size() && shapes_[lastShape_] == shape) {
    return static_cast<int>(lastShape_);
  }
  const auto known = numberOfShape_.constFind(QString::fromRawData(shape.data(), shape.size()));
  if (known != numberOfShape_.constEnd()) {
    lastShape_ = static_cast<std::size_t>(*known);
  } else {
    lastShape_ = shapes_.size();
    shapes_.push_back(shape.toString());
    linesOfShape_.push_back(0);
    numberOfShape_.insert(shapes_.back(), static_cast<int>(lastShape_));
  }
  return static_cast<int>(lastShape_);
}

int LineCountingLayout::LinesOfShape(int shape) {
  const QString& line = shapes_[static_cast<std::size_t>(shape)];
  if (line.size() <= columns_) return 1;
  int& lines = linesOfShape_[static_cast<std::size_t>(shape)];
  if (lines == 0) lines = LinesByLayout(line);
  return lines;
}

int LineCountingLayout::LinesByLayout(const QString& line) const {
  QTextLayout layout(line, document()->defaultFont());
  BreakLines(layout, line.size() > kLongWord);
  return layout.lineCount();
}

void LineCountingLayout::BreakLines(QTextLayout& layout, bool hasLongWords) const {
  const QTextOption option = document()->defaultTextOption();
  const QTextOption atWords = Wrapped(option, QTextOption::WordWrap);
  const QTextOption anywhere = Wrapped(option, QTextOption::WrapAnywhere);
  int wordEnd = 0;
  double height = 0;
  layout.setTextOption(option);
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLeadingIncluded(true);
    if (hasLongWords && line.textStart() >= wordEnd) {  // no room: the line is one word
      layout.setTextOption(atWords);
      line.setLineWidth(0);
      wordEnd = line.textStart() + line.textLength();
    }
    // A line within one word ends where it would with a look for the word's end, too.
    const bool withinWord = wordEnd - line.textStart() > kLongWord;
    if (withinWord) {
      layout.setTextOption(anywhere);
      line.setLineWidth(room_);
    }
    if (!withinWord || line.textStart() + line.textLength() > wordEnd) {
      layout.setTextOption(option);
      line.setLineWidth(room_);
    }
    line.setPosition({document()->documentMargin(), height});
    height += line.height();
  }
  layout.endLayout();
  layout.setTextOption(option);
}

}  // namespace peakwright

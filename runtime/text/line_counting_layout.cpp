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

void LineCountingLayout::CountAll(int areaWidth) {
  const QFontMetricsF metrics(document()->defaultFont());
  room_ = areaWidth - 2 * document()->documentMargin();
  columns_ = std::max(static_cast<int>((room_ - 1) / metrics.horizontalAdvance(u'0')), 0);
  linesOfShape_.assign(shapes_.size(), 0);
  for (QTextBlock block = document()->firstBlock(); block.isValid(); block = block.next()) {
    BlockLines* known = BlockLines::Of(block);
    if (known == nullptr) known = &BlockLines::Note(block, BlockLines::Read(block.text()));
    block.setLineCount(DisplayedLines(block, *known));
  }
  TellSize();
}

void LineCountingLayout::documentChanged(int from, int removed, int added) {
  const QTextBlock last =
      document()->findBlock(std::min(from + added, document()->characterCount() - 1));
  for (QTextBlock block = document()->findBlock(from); block.isValid(); block = block.next()) {
    BlockLines* known = BlockLines::Of(block);
    if (known == nullptr || !known->written) {
      known = &BlockLines::Note(block, BlockLines::Read(block.text()));
    }
    known->written = false;
    block.setLineCount(DisplayedLines(block, *known));
    if (block == last) break;
  }
  QPlainTextDocumentLayout::documentChanged(from, removed, added);
  TellSize();
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
  layout.setTextOption(document()->defaultTextOption());
  layout.beginLayout();
  for (QTextLine made = layout.createLine(); made.isValid(); made = layout.createLine()) {
    made.setLineWidth(room_);
  }
  layout.endLayout();
  return layout.lineCount();
}

}  // namespace peakwright

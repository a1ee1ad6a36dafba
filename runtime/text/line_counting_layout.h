#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include <QHash>
#include <QPlainTextDocumentLayout>
#include <QString>
#include <QTextBlock>
#include <QTextLayout>

#include "runtime/text/block_lines.h"

namespace peakwright {

/// Tells a document how many lines its blocks are displayed in, without laying them out: the
/// toolkit counts a block that isn't laid out as one line. Lays out long lines itself: the toolkit
/// looks through all that is left of a long word again for each line that the word takes.
class LineCountingLayout : public QPlainTextDocumentLayout {
 public:
  using QPlainTextDocumentLayout::QPlainTextDocumentLayout;

  /// Counts the lines in an area of this width in pixels.
  void CountAll(int areaWidth);
  /// Lays out for this width from now on; the counts are those of the former one until counted.
  void AreaWidth(int pixels);

  QRectF blockBoundingRect(const QTextBlock& block) const override;

 protected:
  void documentChanged(int from, int removed, int added) override;

 private:
  int DisplayedLines(const QTextBlock& block, BlockLines& known);
  int WrappedLines(const QString& text) const;
  std::vector<std::pair<int, int>> ShapesIn(QString text);
  int NumberOfShape(QStringView shape);
  int LinesOfShape(int shape);
  int LinesByLayout(const QString& line) const;
  void BreakLines(QTextLayout& layout, bool hasLongWords) const;
  void TellSize() { emit documentSizeChanged(documentSize()); }

  int blocks_ = 1;   // As the toolkit knows them from the last change.
  double room_ = 0;  // Width that a line can take, in pixels.
  int columns_ = 0;  // Plain characters that surely fit in a line.
  // Lines that differ in digits only wrap alike, so that the rows of a listing have few shapes.
  QHash<QString, int> numberOfShape_;
  std::vector<QString> shapes_;
  std::vector<int> linesOfShape_;  // At this width; 0 until asked for.
  std::size_t lastShape_ = 0;      // The one found last.
};

}  // namespace peakwright

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <QString>
#include <QTextCursor>
#include <QTextDocument>

#include "runtime/text/block_lines.h"

namespace peakwright {

// The form of a text in a document. A carriage return ends a block. A line feed is a line separator
// within a block, so that the rows of a listing, a million and more, share few blocks, which the
// toolkit holds and walks fast; only behind a block's worth of lines a line feed ends a block too,
// and is told from a carriage return by its format.

inline constexpr QChar kLineFeed = QChar::LineSeparator;

/// The text of a document in UTF-8, with each line end as it went in.
std::string TextOf(const QTextDocument& document);

/// Writes a text, piece by piece, and notes with each block it makes which lines that has.
class DocumentWriter {
 public:
  /// Writes at `cursor`, which has no selection and must outlive the writer.
  explicit DocumentWriter(QTextCursor& cursor);
  /// Takes a piece in UTF-8. Throws std::bad_alloc where the document would outgrow the memory. A
  /// character is never spread over two.
  void Write(std::string_view piece);
  /// Writes what is left.
  void Finish();

 private:
  void WriteLines(std::string_view text);
  /// Gathers lines that are all as long as the first, such as rows, and returns their length; or
  /// does nothing. Their ends follow from that length, and needn't be searched for.
  std::size_t GatherEvenLines(std::string_view text, std::size_t length);
  /// Returns how many line feeds the text has, up to 65,535.
  std::size_t Gather(std::string_view text);
  void EndBlock(char lineEnd);

  QTextCursor& cursor_;
  QString gathered_;         // What goes into the block next.
  BlockLines known_;         // Of the block so far.
  int linesPerBlock_;        // From when on a line feed ends a block.
  int lineLength_ = 0;       // Of its last line.
  bool maybeEven_ = true;    // Nothing yet against lines of one length in the block.
  bool fromStart_;           // All of the block is ours.
  qsizetype sinceLook_ = 0;  // Characters written since memory was last looked at.
};

}  // namespace peakwright

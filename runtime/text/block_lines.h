#pragma once

#include <utility>
#include <vector>

#include <QStringView>
#include <QTextBlock>
#include <QTextBlockUserData>

namespace peakwright {

/// Printable ASCII, of which in a monospaced font as many fit in a line as it has columns.
constexpr bool IsPlain(char16_t unit) { return unit >= u' ' && unit <= u'~'; }

/// What is known of a block without reading it again. The block owns it.
struct BlockLines : QTextBlockUserData {
  int lines = 1;         ///< From line end to line end, before any is wrapped.
  int longest = 0;       ///< Length of the longest, in UTF-16 units.
  bool plain = true;     ///< Nothing but line ends and what is plain.
  bool written = false;  ///< Noted as the block was written; the layout hasn't been told yet.
  /// How many lines there are of each shape, as the layout numbers them; empty until asked for.
  std::vector<std::pair<int, int>> shapes;

  static BlockLines* Of(const QTextBlock& block) {
    return static_cast<BlockLines*>(block.userData());
  }
  /// Notes it with the block, in the place of what was.
  static BlockLines& Note(QTextBlock block, const BlockLines& known);
  /// Reads it from a block's text.
  static BlockLines Read(QStringView text);
};

}  // namespace peakwright

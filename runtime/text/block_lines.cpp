#include "runtime/text/block_lines.h"

#include <algorithm>
#include <cstdint>

#include "runtime/text/document_text.h"

namespace peakwright {

BlockLines& BlockLines::Note(QTextBlock block, const BlockLines& known) {
  auto* noted = new BlockLines(known);
  block.setUserData(noted);
  return *noted;
}

BlockLines BlockLines::Read(QStringView text) {
  BlockLines read;
  qsizetype longest = 0;
  qsizetype start = 0;
  for (qsizetype end = text.indexOf(kLineFeed); end >= 0; end = text.indexOf(kLineFeed, start)) {
    longest = std::max(longest, end - start);
    start = end + 1;
    ++read.lines;
  }
  read.longest = static_cast<int>(std::max(longest, text.size() - start));
  // Gathered, not answered at once, so that many units are looked at together.
  std::uint16_t other = 0;
  const char16_t* const units = text.utf16();
  for (qsizetype i = 0; i < text.size(); ++i) {
    other |= static_cast<std::uint16_t>(static_cast<int>(!IsPlain(units[i])) &
                                        static_cast<int>(units[i] != kLineFeed.unicode()));
  }
  read.plain = other == 0;
  return read;
}

}  // namespace peakwright

#include "runtime/appearance/system_font.h"

#include <algorithm>

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>

namespace peakwright {
namespace {

constexpr int kLargestSystemFont = 13;  // Pixels; the fixed layouts hold no larger text.

}  // namespace

QFont SystemFont(int size, bool bold) {
  QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  if (size == 0) size = std::min(QFontInfo(font).pixelSize(), kLargestSystemFont);
  font.setPixelSize(size);
  font.setBold(bold);
  return font;
}

}  // namespace peakwright

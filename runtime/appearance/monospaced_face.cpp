#include "runtime/appearance/monospaced_face.h"

#include <algorithm>
#include <array>

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QStringList>

namespace peakwright {
namespace {

constexpr double kWidest = 10.0 / 16;  // Of a character, beside the size of the font.

/// Measured, as what a family says of itself tells nothing of the face that stands in for it.
bool HoldsColumns(const QString& family) {
  QFont font(family);
  font.setStyleHint(QFont::Monospace, QFont::PreferOutline);
  font.setPixelSize(100);
  const QFontMetricsF metrics(font);
  constexpr std::array<char16_t, 4> kSamples{u'0', u'.', u'M', u' '};
  const double width = metrics.horizontalAdvance(QChar(kSamples.front()));
  return width > 0 && width <= kWidest * font.pixelSize() &&
         std::all_of(kSamples.begin(), kSamples.end(), [&](char16_t sample) {
           return metrics.horizontalAdvance(QChar(sample)) == width;
         });
}

}  // namespace

QString MonospacedFamily(const QString& wanted) {
  QStringList families{wanted, QFontDatabase::systemFont(QFontDatabase::FixedFont).family()};
  if (HoldsColumns(families[0])) return families[0];
  if (HoldsColumns(families[1])) return families[1];
  families = QFontDatabase::families(QFontDatabase::Latin);
  const auto found = std::find_if(families.begin(), families.end(), [](const QString& family) {
    return QFontDatabase::isFixedPitch(family) && HoldsColumns(family);
  });
  return found == families.end() ? wanted : *found;
}

}  // namespace peakwright

#include "runtime/appearance/monospaced_face.h"

#include <algorithm>
#include <array>

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QStringList>

namespace peakwright {
namespace {

constexpr int kSize = 16;       // That of the results, so that one face is loaded, not two.
constexpr double kWidest = 10;  // Of a character.

QFont FontOf(const QString& family) {
  QFont font(family);
  // A listing has nothing to shape, and is laid out more than twice as fast without.
  font.setStyleHint(QFont::Monospace,
                    QFont::StyleStrategy(QFont::PreferOutline | QFont::PreferNoShaping));
  font.setFixedPitch(true);
  font.setPixelSize(kSize);
  return font;
}

/// Measured, as what a family says of itself tells nothing of the face that stands in for it.
bool HoldsColumns(const QString& family) {
  const QFontMetricsF metrics(FontOf(family));
  constexpr std::array<char16_t, 4> kSamples{u'0', u'.', u'M', u' '};
  const double width = metrics.horizontalAdvance(QChar(kSamples.front()));
  return width > 0 && width <= kWidest &&
         std::all_of(kSamples.begin(), kSamples.end(), [&](char16_t sample) {
           return metrics.horizontalAdvance(QChar(sample)) == width;
         });
}

}  // namespace

QFont MonospacedFont(const QString& wanted) {
  if (HoldsColumns(wanted)) return FontOf(wanted);
  const QString own = QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
  if (HoldsColumns(own)) return FontOf(own);
  const QStringList families = QFontDatabase::families(QFontDatabase::Latin);
  const auto found = std::find_if(families.begin(), families.end(), [](const QString& family) {
    return QFontDatabase::isFixedPitch(family) && HoldsColumns(family);
  });
  return FontOf(found == families.end() ? wanted : *found);
}

}  // namespace peakwright

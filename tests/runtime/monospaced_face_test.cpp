#include "runtime/appearance/monospaced_face.h"

#include <QFont>
#include <QFontMetricsF>
#include <gtest/gtest.h>

namespace peakwright {

TEST(MonospacedFace, KeepsTheReportsColumnsWhateverIsInstalled) {
  const QFontMetricsF metrics(MonospacedFont(QStringLiteral("Courier")));
  const double row = metrics.horizontalAdvance(QString(45, u'0'));
  EXPECT_EQ(metrics.horizontalAdvance(QString(45, u'.')), row);
  EXPECT_LE(row, 460) << "a row is wider than the results";
}

}  // namespace peakwright

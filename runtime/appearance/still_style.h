#pragma once

#include <QProxyStyle>

namespace peakwright {

/// A style of the system's in which the default button doesn't pulse: an idle program draws
/// nothing.
class StillStyle : public QProxyStyle {
 public:
  explicit StillStyle(const QString& system);

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
};

}  // namespace peakwright

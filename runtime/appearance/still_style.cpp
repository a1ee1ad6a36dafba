#include "runtime/appearance/still_style.h"

#include <QStyleOptionButton>

namespace peakwright {

StillStyle::StillStyle(const QString& system) : QProxyStyle(system) {}

void StillStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  const bool pulses = element == CE_PushButtonBevel && button != nullptr &&
                      (button->features & QStyleOptionButton::DefaultButton) != 0;
  if (!pulses) {
    QProxyStyle::drawControl(element, option, painter, widget);
    return;
  }
  // An animation that the style begins ends with its object, after the first picture.
  QObject shortLived;
  QStyleOptionButton still = *button;
  still.styleObject = &shortLived;
  QProxyStyle::drawControl(element, &still, painter, widget);
}

}  // namespace peakwright

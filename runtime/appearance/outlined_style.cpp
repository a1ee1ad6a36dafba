#include "runtime/appearance/outlined_style.h"

#include <algorithm>
#include <cmath>

#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QPainter>
#include <QStyleOption>

#include "runtime/appearance/contrast.h"
#include "runtime/appearance/still_style.h"

namespace peakwright {
namespace {

// The least contrast of a control's outline is 3 (WCAG 2.1, level AA); buttons are shaded.
constexpr double kVisible = 3.4;

QColor Mixed(const QColor& from, const QColor& to, double share) {
  const auto mix = [share](int one, int other) {
    return static_cast<int>(std::lround(one + (other - one) * share));
  };
  return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

/// The colour nearest to the window's (with the focus: to the highlight) that stands out from both
/// the window and the control's fill, or at least from the window.
QColor OutlineColor(const QStyleOption& option, QPalette::ColorRole fillRole) {
  const auto color = [&option](QPalette::ColorRole role) {
    return option.palette.color(QPalette::Active, role);
  };
  const bool focused = (option.state & QStyle::State_HasFocus) != 0;
  const QColor window = color(QPalette::Window);
  const QColor from = focused ? color(QPalette::Highlight) : window;
  const QColor to = color(QPalette::WindowText);
  constexpr int kSteps = 64;
  QColor fallback = to;
  for (int step = kSteps; step >= 0; --step) {
    const QColor mixed = Mixed(from, to, static_cast<double>(step) / kSteps);
    if (Contrast(mixed, window) < kVisible) break;
    fallback = mixed;
  }
  for (int step = 0; step <= kSteps; ++step) {
    const QColor mixed = Mixed(from, to, static_cast<double>(step) / kSteps);
    if (Contrast(mixed, window) >= kVisible && Contrast(mixed, color(fillRole)) >= kVisible) {
      return mixed;
    }
  }
  return fallback;
}

/// Strokes a rectangle from within, with a line of whole pixels of the display.
void Outline(QPainter& painter, const QRect& rect, const QColor& color) {
  const QTransform toDevice = painter.deviceTransform();
  const QRectF device = toDevice.mapRect(QRectF(rect));
  const double left = std::ceil(device.left());
  const double top = std::ceil(device.top());
  const double right = std::floor(device.right());
  const double bottom = std::floor(device.bottom());
  const double line = std::max(1.0, std::floor(toDevice.m11()));
  const QTransform fromDevice = toDevice.inverted();
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (const QRectF& side :
       {QRectF(left, top, right - left, line), QRectF(left, bottom - line, right - left, line),
        QRectF(left, top, line, bottom - top), QRectF(right - line, top, line, bottom - top)}) {
    painter.fillRect(fromDevice.mapRect(side), color);
  }
  painter.restore();
}

}  // namespace

OutlinedStyle::OutlinedStyle() : QProxyStyle(QStringLiteral("fusion")) {}

void OutlinedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
  const bool area = qobject_cast<const QAbstractScrollArea*>(widget) != nullptr;
  if (element == PE_Frame && area) {
    painter->fillRect(option->rect, option->palette.base());
  } else {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
  switch (element) {
    case PE_Frame:
    case PE_FrameLineEdit:
    case PE_FrameMenu:
    case PE_IndicatorCheckBox:
      Outline(*painter, option->rect, OutlineColor(*option, QPalette::Base));
      break;
    case PE_PanelButtonCommand:
      // A popup draws its button into a picture of its own; it is outlined as a whole.
      if (qobject_cast<const QComboBox*>(widget) != nullptr) break;
      Outline(*painter, option->rect, OutlineColor(*option, QPalette::Button));
      break;
    default:
      break;
  }
}

void OutlinedStyle::drawControl(ControlElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawControl(element, option, painter, widget);
  if (element != CE_ProgressBar) return;
  Outline(*painter, option->rect, OutlineColor(*option, QPalette::Base));
}

void OutlinedStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (control != CC_ComboBox) return;
  Outline(*painter, option->rect, OutlineColor(*option, QPalette::Button));
}

int OutlinedStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                               const QWidget* widget) const {
  // At a fractional scale what scrolls may begin a pixel early, over a frame of one unit.
  const bool area = qobject_cast<const QAbstractScrollArea*>(widget) != nullptr;
  if (metric == PM_DefaultFrameWidth && area) return 2;
  return QProxyStyle::pixelMetric(metric, option, widget);
}

void OutlineControls() {
  if (qobject_cast<QProxyStyle*>(QApplication::style()) != nullptr) return;  // It is done.
  const QString style = QApplication::style()->name();
  if (style == QStringLiteral("fusion")) {
    QApplication::setStyle(new OutlinedStyle);
  } else {
    QApplication::setStyle(new StillStyle(style));
  }
}

}  // namespace peakwright

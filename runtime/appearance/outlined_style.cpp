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

// The least contrast of a control's outline is 3, that of text 4.5 (WCAG 2.1, level AA); buttons
// are shaded.
constexpr double kVisible = 3.4;
constexpr double kReadable = 8.0;
constexpr int kSteps = 64;  // From one colour to another.
constexpr QMargins kLine(1, 1, 1, 1);

QColor Mixed(const QColor& from, const QColor& to, double share) {
  const auto mix = [share](int one, int other) {
    return static_cast<int>(std::lround(one + (other - one) * share));
  };
  return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

QColor ActiveColor(const QStyleOption& option, QPalette::ColorRole role) {
  return option.palette.color(QPalette::Active, role);
}

/// The colour nearest to the window's (with the focus: to the highlight) that stands out from both
/// the window and the control's fill, or at least from the window.
QColor OutlineColor(const QStyleOption& option, const QColor& fill) {
  const bool focused = (option.state & QStyle::State_HasFocus) != 0;
  const QColor window = ActiveColor(option, QPalette::Window);
  const QColor from = focused ? ActiveColor(option, QPalette::Highlight) : window;
  const QColor to = ActiveColor(option, QPalette::WindowText);
  QColor fallback = to;
  for (int step = kSteps; step >= 0; --step) {
    const QColor mixed = Mixed(from, to, static_cast<double>(step) / kSteps);
    if (Contrast(mixed, window) < kVisible) break;
    fallback = mixed;
  }
  for (int step = 0; step <= kSteps; ++step) {
    const QColor mixed = Mixed(from, to, static_cast<double>(step) / kSteps);
    if (Contrast(mixed, window) >= kVisible && Contrast(mixed, fill) >= kVisible) return mixed;
  }
  return fallback;
}

QColor OutlineColor(const QStyleOption& option, QPalette::ColorRole fillRole) {
  return OutlineColor(option, ActiveColor(option, fillRole));
}

/// Whether it is the button that Return presses.
bool IsDefault(const QStyleOption& option) {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  return button != nullptr && (button->features & QStyleOptionButton::DefaultButton) != 0;
}

/// Whether it is that in the window that has the keyboard.
bool TakesReturn(const QStyleOption& option) {
  return IsDefault(option) && (option.state & QStyle::State_Active) != 0;
}

/// The colour nearest to the highlight on which highlighted text can be read.
QColor DefaultFill(const QStyleOption& option) {
  const QColor text = ActiveColor(option, QPalette::HighlightedText);
  const QColor away = text.lightness() < 128 ? Qt::white : Qt::black;
  for (int step = 0; step < kSteps; ++step) {
    const QColor mixed =
        Mixed(ActiveColor(option, QPalette::Highlight), away, static_cast<double>(step) / kSteps);
    if (Contrast(mixed, text) >= kReadable) return mixed;
  }
  return away;
}

/// The option in the colours of the default button.
QStyleOptionButton AsDefault(const QStyleOption& option) {
  QStyleOptionButton marked = static_cast<const QStyleOptionButton&>(option);
  marked.palette.setColor(QPalette::Button, DefaultFill(option));
  marked.palette.setColor(QPalette::ButtonText, ActiveColor(option, QPalette::HighlightedText));
  marked.features &= ~QStyleOptionButton::DefaultButton;
  return marked;
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

/// The same for the circle within a rectangle.
void OutlineCircle(QPainter& painter, const QRect& rect, const QColor& color) {
  constexpr double kWidth = 1.5;  // Smoothed, a line of one unit would be too faint.
  constexpr double kHalf = kWidth / 2;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(color, kWidth));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(QRectF(rect).adjusted(kHalf, kHalf, -kHalf, -kHalf));
  painter.restore();
}

void DrawDefaultButton(QPainter& painter, const QStyleOptionButton& marked) {
  Outline(painter, marked.rect, OutlineColor(marked, QPalette::Button));
  if ((marked.state & QStyle::State_HasFocus) == 0) return;
  Outline(painter, marked.rect - kLine - kLine, ActiveColor(marked, QPalette::HighlightedText));
}

// Scroll bars and progress are drawn plain: shades and stripes the toolkit draws by threads of its
// own, for which it waits without end where memory is too short for them.

/// Fills what is done; false if nobody knows how much that is.
bool FillProgress(QPainter& painter, const QStyleOption& option) {
  const auto& bar = static_cast<const QStyleOptionProgressBar&>(option);
  const double whole = static_cast<double>(bar.maximum) - bar.minimum;
  if (whole <= 0) return false;
  QRect done = bar.rect - kLine;
  done.setWidth(static_cast<int>(done.width() * ((bar.progress - bar.minimum) / whole)));
  painter.fillRect(done, ActiveColor(bar, QPalette::Highlight));
  return true;
}

/// Fills what is moved by the mouse, which stays clear of the edges.
void FillSlider(QPainter& painter, const QStyleOptionSlider& bar, const QRect& slider) {
  constexpr int kClear = 3;
  const bool upright = bar.orientation == Qt::Vertical;
  const bool held = (bar.state & QStyle::State_Sunken) != 0 &&
                    (bar.activeSubControls & QStyle::SC_ScrollBarSlider) != 0;
  painter.fillRect(
      upright ? slider.adjusted(kClear, 1, -kClear, -1) : slider.adjusted(1, kClear, -1, -kClear),
      held ? ActiveColor(bar, QPalette::WindowText) : OutlineColor(bar, QPalette::Button));
}

}  // namespace

OutlinedStyle::OutlinedStyle() : QProxyStyle(QStringLiteral("fusion")) {}

void OutlinedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
  const bool area = qobject_cast<const QAbstractScrollArea*>(widget) != nullptr;
  if (element == PE_PanelButtonCommand && TakesReturn(*option)) {
    const QStyleOptionButton marked = AsDefault(*option);
    QProxyStyle::drawPrimitive(element, &marked, painter, widget);
    DrawDefaultButton(*painter, marked);
    return;
  }
  if (element == PE_Frame && area) {
    painter->fillRect(option->rect, option->palette.base());
  } else {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
  switch (element) {
    case PE_Frame:
    case PE_FrameLineEdit:
    case PE_PanelMenu:
    case PE_IndicatorCheckBox:
      Outline(*painter, option->rect, OutlineColor(*option, QPalette::Base));
      break;
    case PE_IndicatorRadioButton:
      OutlineCircle(*painter, option->rect, OutlineColor(*option, QPalette::Base));
      break;
    case PE_PanelButtonCommand:
      // A popup draws its button into a picture of its own; it is outlined as a whole.
      if (qobject_cast<const QComboBox*>(widget) != nullptr) break;
      Outline(*painter, option->rect, OutlineColor(*option, QPalette::Button));
      if (IsDefault(*option)) {
        Outline(*painter, option->rect - kLine, OutlineColor(*option, QPalette::Button));
      }
      break;
    default:
      break;
  }
}

void OutlinedStyle::drawControl(ControlElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
  if (element == CE_PushButtonLabel && TakesReturn(*option)) {
    const QStyleOptionButton marked = AsDefault(*option);
    QProxyStyle::drawControl(element, &marked, painter, widget);
    return;
  }
  if (element == CE_ProgressBarContents && FillProgress(*painter, *option)) return;
  if (element == CE_ProgressBarGroove) {
    painter->fillRect(option->rect, ActiveColor(*option, QPalette::Base));
    return;
  }
  QProxyStyle::drawControl(element, option, painter, widget);
  if (element != CE_ProgressBar) return;
  Outline(*painter, option->rect, OutlineColor(*option, QPalette::Base));
}

void OutlinedStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
  if (control == CC_ScrollBar) {
    QStyleOptionSlider ends = static_cast<const QStyleOptionSlider&>(*option);
    ends.subControls &= SC_ScrollBarSubLine | SC_ScrollBarAddLine;
    painter->fillRect(ends.rect, ActiveColor(ends, QPalette::Window));
    QProxyStyle::drawComplexControl(control, &ends, painter, widget);
    FillSlider(*painter, ends, subControlRect(control, option, SC_ScrollBarSlider, widget));
    return;
  }
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  switch (control) {
    case CC_ComboBox:
      Outline(*painter, option->rect, OutlineColor(*option, QPalette::Button));
      break;
    case CC_SpinBox:
      Outline(*painter, option->rect, OutlineColor(*option, QPalette::Base));
      break;
    default:
      break;
  }
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

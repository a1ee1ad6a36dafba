#pragma once

#include <QProxyStyle>

namespace peakwright {

/// The toolkit's own style with outlines that can be seen: on whole pixels of the display, so that
/// none is cut at any scale, and with a contrast of 3 or more to the window and the control's fill.
/// A scroll bar's slider stands out likewise, and the default button is filled with the highlight.
class OutlinedStyle : public QProxyStyle {
 public:
  OutlinedStyle();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
};

/// Gives the program outlined controls where the toolkit draws in its own style; where it draws in
/// the system's, only holds the buttons still.
void OutlineControls();

}  // namespace peakwright

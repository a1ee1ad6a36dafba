#include "runtime/appearance/appearance.h"

#include <QApplication>
#include <QColor>
#include <QPalette>
#include <QWidget>

#include "runtime/appearance/contrast.h"
#include "runtime/color.h"

namespace peakwright {
namespace {

constexpr double kReadable = 4.5;  // The least contrast of text (WCAG 2.1, level AA).

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::WindowText).lightness() >
         palette.color(QPalette::Window).lightness();
}

QPalette DarkPalette() {
  const QColor window(0x2d, 0x2d, 0x2d);
  const QColor text(0xf2, 0xf2, 0xf2);
  QPalette palette(QColor(0x45, 0x45, 0x45), window);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, text);
    palette.setColor(QPalette::Disabled, role, QColor(0x9a, 0x9a, 0x9a));
  }
  palette.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
  palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x26, 0x26));
  palette.setColor(QPalette::Highlight, QColor(0x2a, 0x6f, 0xc9));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0x50, 0x50, 0x50));
  return palette;
}

}  // namespace

bool Color::IsDarkMode() { return IsDark(QApplication::palette()); }

void ShowAppearance(bool dark) { QApplication::setPalette(dark ? DarkPalette() : QPalette()); }

void FixFieldColors(QWidget& field, std::uint32_t text, std::uint32_t background) {
  QPalette palette = field.palette();
  palette.setColor(QPalette::Text, QColor::fromRgb(text));
  palette.setColor(QPalette::Base, QColor::fromRgb(background));
  palette.setColor(QPalette::Highlight, QColor(0x1f, 0x5f, 0xb8));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  // In a window that isn't in front.
  palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0xc8, 0xc8, 0xc8));
  palette.setColor(QPalette::Inactive, QPalette::HighlightedText, Qt::black);
  field.setPalette(palette);
}

void HideSelectionWithoutFocus(QWidget& field) {
  QPalette palette = field.palette();
  palette.setColor(QPalette::Inactive, QPalette::Highlight, palette.color(QPalette::Base));
  palette.setColor(QPalette::Inactive, QPalette::HighlightedText, palette.color(QPalette::Text));
  field.setPalette(palette);
}

void SetReadableTextColor(QWidget& label, std::uint32_t text) {
  const QColor wanted = QColor::fromRgb(text);
  const QPalette appearance = QApplication::palette();
  const bool readable = Contrast(wanted, appearance.color(QPalette::Window)) >= kReadable;
  QPalette palette = label.palette();
  palette.setColor(QPalette::WindowText,
                   readable ? wanted : appearance.color(QPalette::WindowText));
  label.setPalette(palette);
}

}  // namespace peakwright

#include "runtime/desktop_label.h"

#include <QEvent>
#include <QFontInfo>
#include <QFontMetrics>
#include <QLabel>
#include <QMouseEvent>

#include "runtime/appearance.h"
#include "runtime/desktop_application.h"

namespace peakwright {
namespace {

/// `font`, or the next smaller size in which `text` fits into `width`. Captions are laid out for a
/// narrow face, and the system's may be a wide one. A text that no size makes fit is cut off.
QFont FittingFont(const QFont& font, const QString& text, int width) {
  constexpr int kMostPixelsLess = 2;
  const int size = QFontInfo(font).pixelSize();
  QFont smaller = font;
  for (int less = 0; less <= kMostPixelsLess; ++less) {
    smaller.setPixelSize(size - less);
    if (QFontMetrics(smaller).horizontalAdvance(text) <= width) return smaller;
  }
  return font;
}

class NativeLabel : public QLabel {
 public:
  NativeLabel(const DesktopLabel& owner, std::uint32_t color) : owner_(owner), color_(color) {
    setTextFormat(Qt::PlainText);
    SetReadableTextColor(*this, color_);
  }

 protected:
  bool event(QEvent* event) override {
    if (event->type() == QEvent::PaletteChange) SetReadableTextColor(*this, color_);
    return QLabel::event(event);
  }

  void mousePressEvent(QMouseEvent* event) override {
    const QPoint at = event->position().toPoint();
    DesktopApplication::Current().Raise([&] {
      if (owner_.MouseDown) owner_.MouseDown(at.x(), at.y());
    });
  }

 private:
  const DesktopLabel& owner_;
  std::uint32_t color_;
};

}  // namespace

DesktopLabel::DesktopLabel(DesktopWindow& window, const ControlLayout& layout)
    : DesktopUIControl(window, std::make_unique<NativeLabel>(*this, layout.TextColor), layout),
      multiline_(layout.Multiline),
      bold_(layout.Bold),
      fontSize_(layout.FontSize) {
  auto& label = static_cast<QLabel&>(*Native());
  label.setWordWrap(multiline_);
  label.setAlignment(
      (layout.Alignment == TextAlignment::Center ? Qt::AlignHCenter : Qt::AlignLeft) |
      (multiline_ ? Qt::AlignTop : Qt::AlignVCenter));
  Text(layout.Text);
}

void DesktopLabel::Text(std::string_view text) {
  text_ = text;
  QString shown = QString::fromStdString(text_);
  shown.replace(u'\r', u'\n');
  if (!multiline_) shown.replace(u'\n', u' ');
  auto& label = static_cast<QLabel&>(*Native());
  label.setText(shown);
  if (!multiline_) label.setFont(FittingFont(SystemFont(fontSize_, bold_), shown, Width()));
  for (DesktopUIControl* control : named_) control->AccessibleName(text_);
}

void DesktopLabel::Names(DesktopUIControl& control) {
  named_.push_back(&control);
  control.AccessibleName(text_);
}

}  // namespace peakwright

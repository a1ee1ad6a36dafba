#include "runtime/desktop_label.h"

#include <cassert>

#include <QEvent>
#include <QFontInfo>
#include <QFontMetrics>
#include <QLabel>
#include <QMouseEvent>

#include "runtime/appearance/appearance.h"
#include "runtime/appearance/system_font.h"
#include "runtime/application/toolkit_side.h"
#include "runtime/desktop_application.h"
#include "runtime/text/toolkit_strings.h"

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

/// The text with nothing in it that would turn its direction or stay invisible.
QString Harmless(std::string_view text) {
  QString shown = ToQString(text);
  shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
  for (QChar& c : shown) {
    const QChar::Category category = c.category();
    const bool isHarmless =
        c == u'\n' || (category != QChar::Other_Control && category != QChar::Other_Format &&
                       category != QChar::Separator_Line && category != QChar::Separator_Paragraph);
    if (!isHarmless) c = QChar::ReplacementCharacter;
  }
  return shown;
}

/// As much of the beginning of `quotation` as fits into the label between `before` and `after`.
QString FittingPart(const QLabel& label, const QString& before, const QString& quotation,
                    const QString& after) {
  constexpr qsizetype kMost = 1000;  // Characters; more fit into no label.
  const QString beginning = quotation.left(kMost);
  const auto shortened = [&](qsizetype length) {
    return length == quotation.size() ? quotation : beginning.left(length) + QChar(0x2026);
  };
  const auto fits = [&](qsizetype length) {
    const QRect room(0, 0, label.width(), QWIDGETSIZE_MAX);
    const QSize taken =
        label.fontMetrics()
            .boundingRect(room, Qt::TextWordWrap, before + shortened(length) + after)
            .size();
    return taken.width() <= label.width() && taken.height() <= label.height();
  };
  if (quotation.isEmpty() || fits(beginning.size())) return shortened(beginning.size());
  qsizetype length = 0;
  for (qsizetype tooLong = beginning.size(); tooLong - length > 1;) {
    const qsizetype tried = (length + tooLong) / 2;
    (fits(tried) ? length : tooLong) = tried;
  }
  return shortened(length);
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
  auto& label = Native<QLabel>();
  label.setWordWrap(multiline_);
  label.setAlignment(
      (layout.Alignment == TextAlignment::Center ? Qt::AlignHCenter : Qt::AlignLeft) |
      (multiline_ ? Qt::AlignTop : Qt::AlignVCenter));
  Text(layout.Text);
}

void DesktopLabel::Text(std::string_view text, TextRange quoted) {
  assert(quoted.From + quoted.Length <= text.size());
  text_ = text;
  QString shown = Harmless(text.substr(0, quoted.From));
  const QString end = Harmless(text.substr(quoted.From + quoted.Length));
  const QString quotation = Harmless(text.substr(quoted.From, quoted.Length));
  auto& label = Native<QLabel>();
  shown += FittingPart(label, shown, quotation, end) + end;
  if (!multiline_) shown.replace(u'\n', u' ');
  // As a caption the toolkit would take an ampersand for a mnemonic.
  label.setText(named_.empty() ? shown : ToCaption(shown));
  const QString whole = ToQString(text);
  label.setAccessibleName(shown == whole ? QString() : whole);
  if (!multiline_) label.setFont(FittingFont(SystemFont(fontSize_, bold_), shown, Width()));
  for (DesktopUIControl* control : named_) control->AccessibleName(text_);
}

void DesktopLabel::Names(DesktopUIControl& control) {
  Native<QLabel>().setBuddy(ToolkitSide::Of(control));
  named_.push_back(&control);
  Text(std::string(text_));
}

}  // namespace peakwright

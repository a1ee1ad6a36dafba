#include "runtime/desktop_text_area.h"

#include <algorithm>
#include <limits>

#include <QFont>
#include <QScrollBar>

#include "runtime/appearance.h"
#include "runtime/caption_text.h"
#include "runtime/monospaced_face.h"
#include "runtime/text_area_view.h"

namespace peakwright {
namespace {

TextAreaView& View(const DesktopTextArea& area) {
  return static_cast<TextAreaView&>(*area.Native());
}

int ToLine(std::int64_t line) {
  return static_cast<int>(std::clamp<std::int64_t>(line, 0, std::numeric_limits<int>::max()));
}

}  // namespace

DesktopTextArea::DesktopTextArea(DesktopWindow& window, const ControlLayout& layout)
    : DesktopUIControl(window, std::make_unique<TextAreaView>(), layout) {
  FixFieldColors(View(*this), layout.TextColor, layout.BackgroundColor);
  HideSelectionWithoutFocus(View(*this));
}

std::string DesktopTextArea::Text() const { return View(*this).Text(); }
void DesktopTextArea::Text(std::string_view text) { View(*this).ReplaceText(text); }
std::int64_t DesktopTextArea::TextLength() const { return View(*this).TextLength(); }
void DesktopTextArea::SelectedText(std::string_view text) { View(*this).InsertText(text); }
void DesktopTextArea::SelectedText(std::size_t length, const TextPieces& pieces) {
  View(*this).InsertText(length, pieces);
}

std::int64_t DesktopTextArea::LineNumber(std::int64_t position) const {
  return View(*this).LineNumber(
      static_cast<int>(std::clamp<std::int64_t>(position, 0, TextLength())));
}

std::int64_t DesktopTextArea::VerticalScrollPosition() const {
  return View(*this).verticalScrollBar()->value();
}

void DesktopTextArea::VerticalScrollPosition(std::int64_t line) {
  View(*this).verticalScrollBar()->setValue(ToLine(line));
}

void DesktopTextArea::FontName(std::string_view name) {
  QFont font = View(*this).font();
  font.setFamily(MonospacedFamily(ToQString(name)));
  // A listing has nothing to shape, and is laid out more than twice as fast without.
  font.setStyleHint(QFont::Monospace,
                    QFont::StyleStrategy(QFont::PreferOutline | QFont::PreferNoShaping));
  font.setFixedPitch(true);
  View(*this).setFont(font);
}

void DesktopTextArea::FontSize(int pixels) {
  QFont font = View(*this).font();
  font.setPixelSize(pixels);
  View(*this).setFont(font);
}

StyledTextPrinter DesktopTextArea::StyledTextPrinter(Graphics& graphics, int width) const {
  return {graphics, Text(), View(*this).font(), width};
}

}  // namespace peakwright

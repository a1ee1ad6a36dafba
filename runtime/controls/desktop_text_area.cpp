#include "runtime/desktop_text_area.h"

#include <algorithm>
#include <limits>

#include <QFont>
#include <QScrollBar>

#include "runtime/appearance/appearance.h"
#include "runtime/appearance/monospaced_face.h"
#include "runtime/desktop_application.h"
#include "runtime/text/text_area_view.h"
#include "runtime/text/toolkit_strings.h"

namespace peakwright {
namespace {

int ToLine(std::int64_t line) {
  return static_cast<int>(std::clamp<std::int64_t>(line, 0, std::numeric_limits<int>::max()));
}

}  // namespace

DesktopTextArea::DesktopTextArea(DesktopWindow& window, const ControlLayout& layout)
    : DesktopTextControl(window, std::make_unique<TextAreaView>(), layout) {
  HideSelectionWithoutFocus(Native<TextAreaView>());
  Native<TextAreaView>().Restored = [this](int formerLength) {
    DesktopApplication::Current().Raise([&] {
      if (Restored) Restored(formerLength);
    });
  };
}

std::string DesktopTextArea::Text() const { return Native<TextAreaView>().Text(); }
void DesktopTextArea::Text(std::string_view text) { Native<TextAreaView>().ReplaceText(text); }
std::int64_t DesktopTextArea::TextLength() const { return Native<TextAreaView>().TextLength(); }
void DesktopTextArea::SelectedText(std::string_view text) {
  Native<TextAreaView>().InsertText(text);
}
void DesktopTextArea::SelectedText(std::size_t length, const TextPieces& pieces) {
  Native<TextAreaView>().InsertText(length, pieces);
}
void DesktopTextArea::AsOneStep(const std::function<void()>& write) {
  Native<TextAreaView>().AsOneStep(write);
}

std::int64_t DesktopTextArea::LineNumber(std::int64_t position) const {
  return Native<TextAreaView>().LineNumber(
      static_cast<int>(std::clamp<std::int64_t>(position, 0, TextLength())));
}

std::int64_t DesktopTextArea::VerticalScrollPosition() const {
  return Native<TextAreaView>().verticalScrollBar()->value();
}

void DesktopTextArea::VerticalScrollPosition(std::int64_t line) {
  Native<TextAreaView>().verticalScrollBar()->setValue(ToLine(line));
}

void DesktopTextArea::FontName(std::string_view name) {
  QFont font = MonospacedFont(ToQString(name));
  font.setPixelSize(Native<TextAreaView>().font().pixelSize());
  Native<TextAreaView>().setFont(font);
}

void DesktopTextArea::FontSize(int pixels) {
  QFont font = Native<TextAreaView>().font();
  font.setPixelSize(pixels);
  Native<TextAreaView>().setFont(font);
}

StyledTextPrinter DesktopTextArea::StyledTextPrinter(Graphics& graphics, int width) const {
  return {graphics, Text(), Native<TextAreaView>().font(), width};
}

}  // namespace peakwright

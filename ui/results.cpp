#include "ui/results.h"

#include "engine/run.h"
#include "runtime/memory.h"
#include "ui/additional_elements_window.h"
#include "ui/isotopes_window.h"
#include "ui/spoken_texts.h"
#include "ui/text_window.h"

namespace peakwright {
namespace {

/// The controls of the windows, as a run reads and writes them.
class WindowControls : public RunControls {
 public:
  const ElementTable& Table() override { return Window3::Instance().Table(); }
  std::string MassText() override { return TextWindow::Instance().textfield1.Text(); }
  void MassText(const std::string& text) override { TextWindow::Instance().textfield1.Text(text); }
  bool AdditionalElements() override { return TextWindow::Instance().CheckBox2.Value(); }
  std::string CountText(int index) override { return Window1::Instance().textfield1(index).Text(); }
  bool NitrogenRule() override { return TextWindow::Instance().checkbox1.Value(); }
  void Print(std::string_view text) override { Module1::Print(text); }
  void Print(const Listing& listing) override { Module1::Print(listing); }
};

}  // namespace

void Module1::Print(std::string_view text) {
  TextWindow::Instance().textfield2.SelectedText(std::string(text) + '\r');
}

void Module1::Print(const Listing& listing) {
  DesktopTextArea& results = TextWindow::Instance().textfield2;
  results.SelectedText(listing.Length(), [&listing](const auto& take) { listing.Write(take); });
  results.SelectedText("\r");
}

void Module1::calculate() {
  WithMemoryFor("the listing", [] {
    WindowControls controls;
    TextWindow::Instance().Announce(SpokenOutcome(calculate(controls)));
  });
}

void WriteAndScroll(void (*writer)(), int step) {
  DesktopTextArea& results = TextWindow::Instance().textfield2;
  const std::int64_t line = results.LineNumber(results.TextLength());
  results.AsOneStep(writer);
  results.VerticalScrollPosition(line + step);
}

}  // namespace peakwright

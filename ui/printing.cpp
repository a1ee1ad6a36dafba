#include "ui/printing.h"

#include <memory>

#include "engine/global_strings.h"
#include "runtime/graphics.h"
#include "runtime/printer_setup.h"
#include "runtime/styled_text_printer.h"
#include "ui/text_window.h"

namespace peakwright::Module1 {
namespace {

// In 1/72 inch, the same on every paper.
constexpr int kTextWidth = 540;
constexpr int kLeftEdge = 36;
constexpr int kTopEdge = 36;
constexpr int kBlockHeight = 720;

}  // namespace

void printer() {
  PrinterSetup setup;
  if (!psettings.empty()) setup.Settings(psettings);
  if (!setup.ShowPageSetupDialog()) return;
  psettings = setup.Settings();
  const std::unique_ptr<Graphics> page = setup.ShowPrinterDialog();
  if (page == nullptr) return;
  StyledTextPrinter text = TextWindow::Instance().textfield2.StyledTextPrinter(*page, kTextWidth);
  while (!text.Eof()) {
    text.DrawBlock(kLeftEdge, kTopEdge, kBlockHeight);
    if (!text.Eof()) page->NextPage();
  }
}

}  // namespace peakwright::Module1

#include "ui/printing.h"

#include <memory>

#include "engine/global_strings.h"
#include "runtime/graphics.h"
#include "runtime/memory.h"
#include "runtime/printer_setup.h"
#include "runtime/styled_text_printer.h"
#include "ui/text_window.h"

namespace peakwright::Module1 {
namespace {

// In units of the job, the same on every paper.
constexpr int kTextWidth = 540;
constexpr int kLeftEdge = 36;
constexpr int kTopEdge = 36;
constexpr int kBlockHeight = 720;

/// Draws the results block after block, and gives the number of pages.
int Draw(Graphics& page) {
  StyledTextPrinter text = TextWindow::Instance().textfield2.StyledTextPrinter(page, kTextWidth);
  while (!text.Eof()) {
    text.DrawBlock(kLeftEdge, kTopEdge, kBlockHeight);
    if (!text.Eof()) page.NextPage();
  }
  return page.Page();
}

/// Shows both dialogs, and prints unless one of them is cancelled.
void PrintResults() {
  RequireMemory();
  PrinterSetup setup;
  if (!psettings.empty()) setup.Settings(psettings);
  if (!setup.ShowPageSetupDialog()) return;
  psettings = setup.Settings();
  Graphics nowhere;
  const std::unique_ptr<Graphics> page = setup.ShowPrinterDialog(Draw(nowhere));
  if (page == nullptr) return;
  Draw(*page);
  page->End();
}

}  // namespace

void printer() { WithMemoryFor("printing", PrintResults); }

}  // namespace peakwright::Module1

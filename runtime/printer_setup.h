#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "runtime/graphics.h"

class QPrinter;

namespace peakwright {

struct PageSetup;

/// The platform's page-setup and print dialogs.
class PrinterSetup {
 public:
  /// Begins with the platform's default page setup.
  PrinterSetup();
  PrinterSetup(const PrinterSetup&) = delete;
  PrinterSetup& operator=(const PrinterSetup&) = delete;
  ~PrinterSetup();

  /// Paper, orientation, margins and pages a sheet, in a form that only this class reads.
  std::string Settings() const;
  /// Settings that can't be read back count as none.
  void Settings(std::string_view settings);

  /// False on cancel. Throws std::runtime_error if only printers can be chosen and there is none.
  bool ShowPageSetupDialog();
  /// The job that the user asked for, out of so many pages, or null on cancel. What the user
  /// changes of the page setup there is for this job only.
  std::unique_ptr<Graphics> ShowPrinterDialog(int pages);

 private:
  std::shared_ptr<QPrinter> printer_;
  std::unique_ptr<PageSetup> setup_;
};

}  // namespace peakwright

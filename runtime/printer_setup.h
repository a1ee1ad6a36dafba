#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "runtime/graphics.h"

class QPrinter;

namespace peakwright {

/// The platform's page-setup and print dialogs.
class PrinterSetup {
 public:
  /// Begins with the platform's default page setup.
  PrinterSetup();
  PrinterSetup(const PrinterSetup&) = delete;
  PrinterSetup& operator=(const PrinterSetup&) = delete;
  ~PrinterSetup();

  /// Paper, orientation and margins, in a form that only this class reads.
  std::string Settings() const;
  /// Settings that can't be read back count as none.
  void Settings(std::string_view settings);

  bool ShowPageSetupDialog();  ///< False on cancel.
  /// The job that the user asked for, or null on cancel.
  std::unique_ptr<Graphics> ShowPrinterDialog();

 private:
  std::shared_ptr<QPrinter> printer_;
};

}  // namespace peakwright

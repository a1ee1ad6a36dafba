#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <QPageLayout>

class QDialog;
class QPrinter;

namespace peakwright {

/// What a page-setup dialog asks for. The toolkit loses most of it between its two dialogs where
/// there is a real printer, so it is kept here and put back.
struct PageSetup {
  QPageLayout Layout;
  int PagesPerSheet = 0;  ///< Row of the toolkit's list, from 1 page to 16 pages a sheet.
  int SheetOrder = 0;     ///< Row of the toolkit's list of ways to place them.

  /// That of `printer` as it stands, on the printer's own default paper.
  static PageSetup Of(const QPrinter& printer);
  /// Nothing if `settings` didn't come from ToSettings.
  static std::optional<PageSetup> FromSettings(std::string_view settings);
  std::string ToSettings() const;

  /// Reads the fields of a page-setup dialog, where the dialog is the toolkit's own.
  void ReadFrom(const QDialog& dialog);
  /// Fills them in, as far as the printer of the dialog has such a paper.
  void FillIn(QDialog& dialog) const;
  /// Has the next job of `printer` printed with this setup.
  void ApplyTo(QPrinter& printer) const;
};

}  // namespace peakwright

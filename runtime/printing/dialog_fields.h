#pragma once

#include <array>

#include <QPageLayout>
#include <QPrintEngine>

class QComboBox;
class QDialog;
class QDoubleSpinBox;
class QLineEdit;
class QRadioButton;
class QSpinBox;
class QWidget;

namespace peakwright {

// What this layer relies on in the toolkit's own dialogs for printing, and its documentation
// doesn't promise. Dialogs of the system's have none of these fields.

/// The fields of the page setup, which the properties of a printer have as well.
struct PageSetupFields {
  explicit PageSetupFields(const QDialog& dialog);
  bool AreComplete() const;
  QPageLayout::Unit LengthUnit() const;

  QComboBox* Paper;
  QComboBox* Unit;
  QDoubleSpinBox* Width;
  QDoubleSpinBox* Height;
  QRadioButton* Portrait;
  QRadioButton* Landscape;
  QDoubleSpinBox* Left;
  QDoubleSpinBox* Top;
  QDoubleSpinBox* Right;
  QDoubleSpinBox* Bottom;
  QComboBox* PagesPerSheet;
  QComboBox* SheetOrder;
};

/// The fields of the print dialog that this layer completes; each may be null.
struct PrintDialogFields {
  explicit PrintDialogFields(const QDialog& dialog);

  QComboBox* Target;
  QLineEdit* File;
  QSpinBox* Copies;
  QWidget* Reverse;
  QRadioButton* PageListIsChosen;
  QLineEdit* PageList;
};

// The rows of PagesPerSheet and SheetOrder, as the print server names them.
inline constexpr std::array kPagesPerSheet{"1", "2", "4", "6", "9", "16"};
inline constexpr std::array kSheetOrder{"lrtb", "lrbt", "rlbt", "rltb",
                                        "btlr", "btrl", "tblr", "tbrl"};

/// Under which the toolkit's printers keep their options for the print server. Its own name for
/// this is in a header that isn't installed.
inline constexpr auto kServerOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);

}  // namespace peakwright

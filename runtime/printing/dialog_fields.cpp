#include "runtime/printing/dialog_fields.h"

#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>

namespace peakwright {

PageSetupFields::PageSetupFields(const QDialog& dialog)
    : Paper(dialog.findChild<QComboBox*>(QStringLiteral("pageSizeCombo"))),
      Unit(dialog.findChild<QComboBox*>(QStringLiteral("unitCombo"))),
      Width(dialog.findChild<QDoubleSpinBox*>(QStringLiteral("pageWidth"))),
      Height(dialog.findChild<QDoubleSpinBox*>(QStringLiteral("pageHeight"))),
      Portrait(dialog.findChild<QRadioButton*>(QStringLiteral("portrait"))),
      Landscape(dialog.findChild<QRadioButton*>(QStringLiteral("landscape"))),
      Left(dialog.findChild<QDoubleSpinBox*>(QStringLiteral("leftMargin"))),
      Top(dialog.findChild<QDoubleSpinBox*>(QStringLiteral("topMargin"))),
      Right(dialog.findChild<QDoubleSpinBox*>(QStringLiteral("rightMargin"))),
      Bottom(dialog.findChild<QDoubleSpinBox*>(QStringLiteral("bottomMargin"))),
      PagesPerSheet(dialog.findChild<QComboBox*>(QStringLiteral("pagesPerSheetCombo"))),
      SheetOrder(dialog.findChild<QComboBox*>(QStringLiteral("pagesPerSheetLayoutCombo"))) {}

bool PageSetupFields::AreComplete() const {
  return Paper && Unit && Width && Height && Portrait && Landscape && Left && Top && Right &&
         Bottom && PagesPerSheet && SheetOrder;
}

QPageLayout::Unit PageSetupFields::LengthUnit() const {
  return Unit->currentData().value<QPageLayout::Unit>();
}

PrintDialogFields::PrintDialogFields(const QDialog& dialog)
    : Target(dialog.findChild<QComboBox*>(QStringLiteral("printers"))),
      File(dialog.findChild<QLineEdit*>(QStringLiteral("filename"))),
      Copies(dialog.findChild<QSpinBox*>(QStringLiteral("copies"))),
      Reverse(dialog.findChild<QWidget*>(QStringLiteral("reverse"))),
      PageListIsChosen(dialog.findChild<QRadioButton*>(QStringLiteral("pagesRadioButton"))),
      PageList(dialog.findChild<QLineEdit*>(QStringLiteral("pagesLineEdit"))) {}

}  // namespace peakwright

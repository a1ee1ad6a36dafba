#include "runtime/printer_setup.h"

#include <algorithm>
#include <array>
#include <optional>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QPageLayout>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>

#include "runtime/caption_text.h"

namespace peakwright {
namespace {

/// Width and height of the upright paper, 1 for landscape, and the margins at the left, top, right
/// and bottom. Lengths in millimetres, of which the toolkit keeps hundredths.
using PageSetup = std::array<double, 7>;

constexpr double kLongestSide = 5080;  // Of the largest page of a PDF file.

std::string ToSettings(const PageSetup& setup) {
  QStringList fields;
  for (const double field : setup) fields << QString::number(field, 'g', 12);
  return fields.join(u' ').toStdString();
}

std::optional<PageSetup> FromSettings(std::string_view settings) {
  const QStringList fields = ToQString(settings).split(u' ');
  PageSetup setup{};
  if (fields.size() != static_cast<qsizetype>(setup.size())) return std::nullopt;
  bool readable = true;
  std::transform(fields.begin(), fields.end(), setup.begin(), [&](const QString& field) {
    bool isNumber = false;
    const double value = field.toDouble(&isNumber);
    readable = readable && isNumber && value >= 0 && value <= kLongestSide;
    return value;
  });
  return readable ? std::optional(setup) : std::nullopt;
}

/// The dialog of desktops that have none of their own lacks a file name, and offers an order of
/// pages that a text which is printed as it is laid out can't have.
void CompleteFileDialog(QPrintDialog& dialog) {
  if (auto* reverse = dialog.findChild<QWidget*>(QStringLiteral("reverse"))) reverse->hide();
  auto* file = dialog.findChild<QLineEdit*>(QStringLiteral("filename"));
  if (file == nullptr || !QFileInfo(file->text()).isDir()) return;
  file->setText(QDir(file->text()).filePath(dialog.printer()->docName() + QStringLiteral(".pdf")));
}

}  // namespace

PrinterSetup::PrinterSetup() : printer_(std::make_shared<QPrinter>(QPrinter::HighResolution)) {
  printer_->setDocName(QCoreApplication::applicationName());
}

PrinterSetup::~PrinterSetup() = default;

std::string PrinterSetup::Settings() const {
  const QPageLayout page = printer_->pageLayout();
  const QSizeF paper = page.pageSize().size(QPageSize::Millimeter);
  const QMarginsF margins = page.margins(QPageLayout::Millimeter);
  return ToSettings({paper.width(), paper.height(),
                     page.orientation() == QPageLayout::Landscape ? 1.0 : 0.0, margins.left(),
                     margins.top(), margins.right(), margins.bottom()});
}

void PrinterSetup::Settings(std::string_view settings) {
  const std::optional<PageSetup> setup = FromSettings(settings);
  if (!setup.has_value()) return;
  const auto [width, height, landscape, left, top, right, bottom] = *setup;
  const QPageLayout page(QPageSize(QSizeF(width, height), QPageSize::Millimeter),
                         landscape == 1 ? QPageLayout::Landscape : QPageLayout::Portrait,
                         QMarginsF(left, top, right, bottom), QPageLayout::Millimeter);
  if (page.isValid() && !page.paintRect().isEmpty()) printer_->setPageLayout(page);
}

bool PrinterSetup::ShowPageSetupDialog() {
  QPageSetupDialog dialog(printer_.get());
  return dialog.exec() == QDialog::Accepted;
}

std::unique_ptr<Graphics> PrinterSetup::ShowPrinterDialog() {
  QPrintDialog dialog(printer_.get());
  CompleteFileDialog(dialog);
  if (dialog.exec() != QDialog::Accepted) return nullptr;
  return std::make_unique<Graphics>(printer_);
}

}  // namespace peakwright

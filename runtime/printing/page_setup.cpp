#include "runtime/printing/page_setup.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QPrintEngine>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRadioButton>

#include "runtime/printing/dialog_fields.h"
#include "runtime/text/toolkit_strings.h"

namespace peakwright {
namespace {

/// Width and height of the upright paper, 1 for landscape, the margins at the left, top, right and
/// bottom, and the two rows of the setup. Lengths in millimetres, of which the toolkit keeps
/// hundredths.
using Numbers = std::array<double, 9>;

constexpr double kLongestSide = 5080;  // Of the largest page of a PDF file.

std::optional<Numbers> ToNumbers(std::string_view settings) {
  const QStringList fields = ToQString(settings).split(u' ');
  Numbers numbers{};
  if (fields.size() != static_cast<qsizetype>(numbers.size())) return std::nullopt;
  bool readable = true;
  std::transform(fields.begin(), fields.end(), numbers.begin(), [&](const QString& field) {
    bool isNumber = false;
    const double value = field.toDouble(&isNumber);
    readable = readable && isNumber && value >= 0 && value <= kLongestSide;
    return value;
  });
  return readable ? std::optional(numbers) : std::nullopt;
}

/// Printers give their papers in whole points.
bool IsSamePaper(const QPageSize& one, const QPageSize& other) {
  constexpr double kRounding = 1.5;
  const QSizeF difference = one.size(QPageSize::Point) - other.size(QPageSize::Point);
  return std::abs(difference.width()) < kRounding && std::abs(difference.height()) < kRounding;
}

/// The row of the paper in the list; else that of a size of one's own, which holds no paper; else
/// -1.
int RowOf(const QComboBox& papers, const QPageSize& paper) {
  int own = -1;
  for (int row = 0; row < papers.count(); ++row) {
    const auto listed = papers.itemData(row).value<QPageSize>();
    if (!listed.isValid()) own = row;
    if (listed.isValid() && IsSamePaper(listed, paper)) return row;
  }
  return own;
}

QPageSize PaperIn(const PageSetupFields& fields) {
  const auto listed = fields.Paper->currentData().value<QPageSize>();
  if (listed.isValid()) return listed;
  QSizeF size(fields.Width->value(), fields.Height->value());
  if (fields.Landscape->isChecked()) size.transpose();
  return QPageSize(size, static_cast<QPageSize::Unit>(fields.LengthUnit()));
}

}  // namespace

PageSetup PageSetup::Of(const QPrinter& printer) {
  PageSetup setup{printer.pageLayout()};
  const QPageSize paper = QPrinterInfo(printer).defaultPageSize();
  if (paper.isValid()) setup.Layout.setPageSize(paper, setup.Layout.minimumMargins());
  return setup;
}

std::string PageSetup::ToSettings() const {
  const QSizeF paper = Layout.pageSize().size(QPageSize::Millimeter);
  const QMarginsF margins = Layout.margins(QPageLayout::Millimeter);
  QStringList fields;
  for (const double number : Numbers{paper.width(), paper.height(),
                                     Layout.orientation() == QPageLayout::Landscape ? 1.0 : 0.0,
                                     margins.left(), margins.top(), margins.right(),
                                     margins.bottom(), double(PagesPerSheet), double(SheetOrder)}) {
    fields << QString::number(number, 'g', 12);
  }
  return fields.join(u' ').toStdString();
}

std::optional<PageSetup> PageSetup::FromSettings(std::string_view settings) {
  const std::optional<Numbers> numbers = ToNumbers(settings);
  if (!numbers.has_value()) return std::nullopt;
  const auto [width, height, landscape, left, top, right, bottom, perSheet, order] = *numbers;
  PageSetup setup{QPageLayout(QPageSize(QSizeF(width, height), QPageSize::Millimeter),
                              landscape == 1 ? QPageLayout::Landscape : QPageLayout::Portrait,
                              QMarginsF(left, top, right, bottom), QPageLayout::Millimeter),
                  static_cast<int>(perSheet), static_cast<int>(order)};
  const bool possible = setup.Layout.isValid() && !setup.Layout.paintRect().isEmpty() &&
                        perSheet < kPagesPerSheet.size() && order < kSheetOrder.size();
  return possible ? std::optional(setup) : std::nullopt;
}

void PageSetup::ReadFrom(const QDialog& dialog) {
  const PageSetupFields fields(dialog);
  if (!fields.AreComplete()) return;
  Layout =
      QPageLayout(PaperIn(fields),
                  fields.Landscape->isChecked() ? QPageLayout::Landscape : QPageLayout::Portrait,
                  QMarginsF(fields.Left->value(), fields.Top->value(), fields.Right->value(),
                            fields.Bottom->value()),
                  fields.LengthUnit());
  PagesPerSheet = std::max(0, fields.PagesPerSheet->currentIndex());
  SheetOrder = std::max(0, fields.SheetOrder->currentIndex());
}

void PageSetup::FillIn(QDialog& dialog) const {
  const PageSetupFields fields(dialog);
  if (!fields.AreComplete()) return;
  const bool landscape = Layout.orientation() == QPageLayout::Landscape;
  (landscape ? fields.Landscape : fields.Portrait)->click();
  const int row = RowOf(*fields.Paper, Layout.pageSize());
  if (row >= 0) fields.Paper->setCurrentIndex(row);
  if (fields.Width->isEnabled()) {
    const QRectF sheet = Layout.fullRect(fields.LengthUnit());
    fields.Width->setValue(sheet.width());
    fields.Height->setValue(sheet.height());
  }
  const QMarginsF margins = Layout.margins(fields.LengthUnit());
  fields.Left->setValue(margins.left());
  fields.Top->setValue(margins.top());
  fields.Right->setValue(margins.right());
  fields.Bottom->setValue(margins.bottom());
  fields.PagesPerSheet->setCurrentIndex(PagesPerSheet);
  fields.SheetOrder->setCurrentIndex(SheetOrder);
}

void PageSetup::ApplyTo(QPrinter& printer) const {
  // One after the other: a printer that doubts one of them would take none of a whole layout.
  printer.setPageOrientation(Layout.orientation());
  printer.setPageSize(Layout.pageSize());
  printer.setPageMargins(Layout.margins(), Layout.units());
  QStringList options = printer.printEngine()->property(kServerOptions).toStringList();
  // The range is kept here, page by page, and must not be applied to what is left once more.
  for (const char* option : {"number-up", "number-up-layout", "page-ranges"}) {
    const qsizetype at = options.indexOf(QLatin1String(option));
    if (at >= 0) options.remove(at, 2);
  }
  if (PagesPerSheet > 0) {
    const auto pages = static_cast<std::size_t>(PagesPerSheet);
    const auto order = static_cast<std::size_t>(SheetOrder);
    options << QStringLiteral("number-up") << QString::fromLatin1(kPagesPerSheet.at(pages))
            << QStringLiteral("number-up-layout") << QString::fromLatin1(kSheetOrder.at(order));
  }
  printer.printEngine()->setProperty(kServerOptions, options);
}

}  // namespace peakwright

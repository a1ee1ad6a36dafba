#include "runtime/graphics.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

#include <QCursor>
#include <QFile>
#include <QGuiApplication>
#include <QLibrary>
#include <QPageLayout>
#include <QPageRanges>
#include <QPainter>
#include <QPrinter>

#include "runtime/desktop_application.h"

namespace peakwright {
namespace {

constexpr double kUnitsPerInch = 72;
constexpr QSizeF kSmallestSheet(594, 774);

/// Dots of the device a unit.
double Scale(const QPrinter& printer) {
  const QSizeF sheet = printer.pageLayout().fullRect(QPageLayout::Point).size();
  const double shrunk = std::min(
      {1.0, sheet.width() / kSmallestSheet.width(), sheet.height() / kSmallestSheet.height()});
  return shrunk * printer.logicalDpiX() / kUnitsPerInch;
}

std::runtime_error CannotWrite(const QPrinter& printer) {
  const QString target =
      printer.outputFileName().isEmpty() ? printer.printerName() : printer.outputFileName();
  return std::runtime_error("The pages could not be written to \"" + target.toStdString() + "\".");
}

/// Why the print server did not take the last job; empty if it did. The toolkit keeps this to
/// itself, but the server's library, which the toolkit has loaded, remembers it for each thread.
QString Refusal() {
  constexpr int kTaken = 0x00ff;  // Statuses up to here report success.
  QLibrary server(QStringLiteral("cups"), 2);
  const auto status = reinterpret_cast<int (*)()>(server.resolve("cupsLastError"));
  const auto text = reinterpret_cast<const char* (*)()>(server.resolve("cupsLastErrorString"));
  if (status == nullptr || text == nullptr || (status() >= 0 && status() <= kTaken)) return {};
  return QString::fromUtf8(text());
}

/// The toolkit reports no failed write, as on a full disk; but then the file lacks its end mark.
bool HasEndMark(const QString& pdf) {
  constexpr qint64 kTail = 32;
  QFile file(pdf);
  return file.open(QIODevice::ReadOnly) && file.seek(std::max<qint64>(0, file.size() - kTail)) &&
         file.read(kTail).contains("%%EOF");
}

}  // namespace

Graphics::Graphics() : painter_(std::make_unique<QPainter>()) {}

Graphics::Graphics(std::shared_ptr<QPrinter> printer)
    : printer_(std::move(printer)), painter_(std::make_unique<QPainter>()) {
  printer_->setFullPage(true);
  printer_->setPageMargins({});  // On Windows the toolkit moves the full page by them, too.
}

Graphics::~Graphics() {
  if (printer_ != nullptr && !isEmpty_) DesktopApplication::Current().Raise([this] { EndJob(); });
}

void Graphics::NextPage() {
  ++page_;
  pageBegun_ = false;
}

QPainter* Graphics::Painter() {
  isEmpty_ = false;
  if (!IsWanted()) return nullptr;
  if (!pageBegun_) BeginPage();
  return painter_.get();
}

bool Graphics::IsWanted() const {
  return printer_ != nullptr &&
         (printer_->printRange() != QPrinter::PageRange || printer_->pageRanges().contains(page_));
}

void Graphics::BeginPage() {
  if (!painter_->isActive()) {
    failed_ = !painter_->begin(printer_.get());
    if (failed_) throw CannotWrite(*printer_);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    painter_->scale(Scale(*printer_), Scale(*printer_));
  } else if (!printer_->newPage()) {
    failed_ = true;
    EndPainting();
    throw CannotWrite(*printer_);
  }
  pageBegun_ = true;
}

bool Graphics::EndPainting() {
  QGuiApplication::restoreOverrideCursor();
  return painter_->end();
}

void Graphics::EndJob() {
  if (!painter_->isActive()) {
    if (failed_) return;
    throw std::runtime_error("Nothing was printed: the text has no such page, it ends with page " +
                             std::to_string(page_) + ".");
  }
  const bool ended = EndPainting();
  const bool toFile = printer_->outputFormat() == QPrinter::PdfFormat;
  if (!ended || (toFile && !HasEndMark(printer_->outputFileName()))) throw CannotWrite(*printer_);
  const QString refusal = toFile ? QString() : Refusal();
  if (refusal.isEmpty()) return;
  throw std::runtime_error("The printer \"" + printer_->printerName().toStdString() +
                           "\" did not take the pages: " + refusal.toStdString());
}

}  // namespace peakwright

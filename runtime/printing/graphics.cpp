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
#include <QPaintEngine>
#include <QPainter>
#include <QPrinter>

namespace peakwright {
namespace {

constexpr double kUnitsPerInch = 72;
constexpr double kBeyond = kUnitsPerInch / 4;  // What most printers leave blank, and more.

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
  if (!painter_->isActive()) return;
  QGuiApplication::restoreOverrideCursor();
  printer_->abort();
  // The toolkit can't abort a file: it would complete it now, and hand it to the print server.
  painter_->paintEngine()->setActive(false);
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

double Graphics::Scale(double right, double bottom) const {
  const QSizeF sheet = printer_->pageLayout().fullRect(QPageLayout::Point).size();
  const double shrunk =
      std::min({1.0, sheet.width() / (right + kBeyond), sheet.height() / (bottom + kBeyond)});
  return shrunk * printer_->logicalDpiX() / kUnitsPerInch;
}

bool Graphics::IsWanted() const {
  return printer_ != nullptr &&
         (printer_->printRange() != QPrinter::PageRange || printer_->pageRanges().contains(page_));
}

void Graphics::BeginPage() {
  if (!painter_->isActive()) {
    if (!painter_->begin(printer_.get())) throw CannotWrite(*printer_);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  } else if (!printer_->newPage()) {
    throw CannotWrite(*printer_);
  }
  pageBegun_ = true;
}

void Graphics::End() {
  if (isEmpty_) return;
  if (!painter_->isActive()) {
    throw std::runtime_error("Nothing was printed: the text has no such page, it ends with page " +
                             std::to_string(page_) + ".");
  }
  const bool ended = painter_->end();
  QGuiApplication::restoreOverrideCursor();
  const bool toFile = printer_->outputFormat() == QPrinter::PdfFormat;
  if (!ended || (toFile && !HasEndMark(printer_->outputFileName()))) throw CannotWrite(*printer_);
  const QString refusal = toFile ? QString() : Refusal();
  if (refusal.isEmpty()) return;
  throw std::runtime_error("The printer \"" + printer_->printerName().toStdString() +
                           "\" did not take the pages: " + refusal.toStdString());
}

}  // namespace peakwright

#include "runtime/graphics.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

#include <QCursor>
#include <QFile>
#include <QGuiApplication>
#include <QPageRanges>
#include <QPainter>
#include <QPrinter>

#include "runtime/desktop_application.h"

namespace peakwright {
namespace {

constexpr double kUnitsPerInch = 72;

std::runtime_error CannotWrite(const QPrinter& printer) {
  const QString target =
      printer.outputFileName().isEmpty() ? printer.printerName() : printer.outputFileName();
  return std::runtime_error("The pages could not be written to \"" + target.toStdString() + "\".");
}

/// The toolkit reports no failed write, as on a full disk; but then the file lacks its end mark.
bool HasEndMark(const QString& pdf) {
  constexpr qint64 kTail = 32;
  QFile file(pdf);
  return file.open(QIODevice::ReadOnly) && file.seek(std::max<qint64>(0, file.size() - kTail)) &&
         file.read(kTail).contains("%%EOF");
}

}  // namespace

Graphics::Graphics(std::shared_ptr<QPrinter> printer)
    : printer_(std::move(printer)), painter_(std::make_unique<QPainter>()) {
  printer_->setFullPage(true);
}

Graphics::~Graphics() {
  if (painter_->isActive()) DesktopApplication::Current().Raise([this] { EndJob(); });
}

void Graphics::NextPage() {
  ++page_;
  pageBegun_ = false;
}

QPainter* Graphics::Painter() {
  if (!IsWanted()) return nullptr;
  if (!pageBegun_) BeginPage();
  return painter_.get();
}

bool Graphics::IsWanted() const {
  return printer_->printRange() != QPrinter::PageRange || printer_->pageRanges().contains(page_);
}

void Graphics::BeginPage() {
  if (!painter_->isActive()) {
    if (!painter_->begin(printer_.get())) throw CannotWrite(*printer_);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    painter_->scale(printer_->logicalDpiX() / kUnitsPerInch,
                    printer_->logicalDpiY() / kUnitsPerInch);
  } else if (!printer_->newPage()) {
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
  const bool ended = EndPainting();
  const bool toFile = printer_->outputFormat() == QPrinter::PdfFormat;
  if (!ended || (toFile && !HasEndMark(printer_->outputFileName()))) throw CannotWrite(*printer_);
}

}  // namespace peakwright

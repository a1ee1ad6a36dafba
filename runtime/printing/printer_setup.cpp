#include "runtime/printer_setup.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QPageRanges>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QRadioButton>
#include <QSpinBox>

#include "runtime/printing/dialog_fields.h"
#include "runtime/printing/page_setup.h"

namespace peakwright {
namespace {

/// Keeps the toolkit from writing a warning where there is no printer, which is no error here.
class QuietToolkit {
 public:
  QuietToolkit() { QLoggingCategory::defaultCategory()->setEnabled(QtWarningMsg, false); }
  QuietToolkit(const QuietToolkit&) = delete;
  QuietToolkit& operator=(const QuietToolkit&) = delete;
  ~QuietToolkit() { QLoggingCategory::defaultCategory()->setEnabled(QtWarningMsg, true); }
};

/// Keeps the page setup in step with the printer's properties, a window that the print dialog opens
/// with the printer's own defaults.
class PropertiesKeeper : public QObject {
 public:
  PropertiesKeeper(QPrintDialog& dialog, PageSetup& setup) : QObject(&dialog), setup_(setup) {
    dialog.installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::ChildAdded) {
      QObject* child = static_cast<QChildEvent*>(event)->child();
      if (child->isWidgetType()) child->installEventFilter(this);
    } else if (watched != parent() && !event->spontaneous()) {
      auto* properties = qobject_cast<QDialog*>(watched);
      if (properties != nullptr && event->type() == QEvent::Show) setup_.FillIn(*properties);
      if (properties != nullptr && event->type() == QEvent::Hide &&
          properties->result() == QDialog::Accepted) {
        setup_.ReadFrom(*properties);
      }
    }
    return false;
  }

 private:
  PageSetup& setup_;
};

/// The dialog of desktops that have none of their own lacks a file name, and offers what the text,
/// which is printed as it is laid out, can't have: another order of pages and, in a file, copies.
void CompleteFileDialog(QPrintDialog& dialog, const PrintDialogFields& fields) {
  if (fields.Reverse != nullptr) fields.Reverse->hide();
  if (QSpinBox* copies = fields.Copies; copies != nullptr && fields.Target != nullptr) {
    const auto offerCopies = [&dialog, copies] {
      const bool toFile = dialog.printer()->outputFormat() == QPrinter::PdfFormat;
      if (toFile) copies->setValue(1);
      copies->parentWidget()->setEnabled(!toFile);
    };
    QObject::connect(fields.Target, &QComboBox::currentIndexChanged, &dialog, offerCopies);
    offerCopies();
  }
  QLineEdit* file = fields.File;
  if (file == nullptr || !QFileInfo(file->text()).isDir()) return;
  file->setText(QDir(file->text()).filePath(dialog.printer()->docName() + QStringLiteral(".pdf")));
}

/// The toolkit refuses a list of pages unless the printer has one already.
void AcceptPageLists(QPrintDialog& dialog, const PrintDialogFields& fields) {
  if (fields.PageList == nullptr) return;
  QObject::connect(fields.PageList, &QLineEdit::textChanged, &dialog,
                   [&dialog](const QString& text) {
                     dialog.printer()->setPageRanges(QPageRanges::fromString(text));
                   });
}

/// From 6.8 on the toolkit hands a list of pages to the print server only.
void TakePageList(QPrintDialog& dialog, const PrintDialogFields& fields) {
  const QRadioButton* chosen = fields.PageListIsChosen;
  if (chosen == nullptr || fields.PageList == nullptr || !chosen->isChecked()) return;
  dialog.printer()->setPrintRange(QPrinter::PageRange);
  dialog.printer()->setPageRanges(QPageRanges::fromString(fields.PageList->text()));
}

/// The dialogs of Windows know no files, and without a printer they don't even come up.
void RequirePrinter(const QPrinter& printer) {
#ifdef Q_OS_WIN
  if (printer.outputFormat() != QPrinter::NativeFormat) {
    throw std::runtime_error("There is no printer on this computer to print with.");
  }
#else
  static_cast<void>(printer);
#endif
}

}  // namespace

PrinterSetup::PrinterSetup()
    : printer_(std::make_shared<QPrinter>(QPrinter::HighResolution)),
      setup_(std::make_unique<PageSetup>(PageSetup::Of(*printer_))) {
  printer_->setDocName(QCoreApplication::applicationName());
}

PrinterSetup::~PrinterSetup() = default;

std::string PrinterSetup::Settings() const { return setup_->ToSettings(); }

void PrinterSetup::Settings(std::string_view settings) {
  if (auto setup = PageSetup::FromSettings(settings)) *setup_ = *std::move(setup);
}

bool PrinterSetup::ShowPageSetupDialog() {
  RequirePrinter(*printer_);
  setup_->ApplyTo(*printer_);
  const auto dialog = [this] {
    const QuietToolkit quiet;
    return std::make_unique<QPageSetupDialog>(printer_.get());
  }();
  setup_->FillIn(*dialog);
  if (dialog->exec() != QDialog::Accepted) return false;
  setup_->Layout = printer_->pageLayout();
  setup_->ReadFrom(*dialog);
  return true;
}

std::unique_ptr<Graphics> PrinterSetup::ShowPrinterDialog(int pages) {
  setup_->ApplyTo(*printer_);
  QPrintDialog dialog(printer_.get());
  dialog.setMinMax(1, std::max(1, pages));
  dialog.setFromTo(1, std::max(1, pages));
  const PrintDialogFields fields(dialog);
  CompleteFileDialog(dialog, fields);
  AcceptPageLists(dialog, fields);
  PageSetup chosen = *setup_;
  const PropertiesKeeper keeper(dialog, chosen);
  if (dialog.exec() != QDialog::Accepted) return nullptr;
  TakePageList(dialog, fields);
  chosen.ApplyTo(*printer_);
  return std::unique_ptr<Graphics>(new Graphics(printer_));
}

}  // namespace peakwright

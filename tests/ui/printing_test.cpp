#include "ui/printing.h"

#include <functional>
#include <string>
#include <sys/resource.h>
#include <vector>

#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTest>
#include <QtWidgets>
#include <gtest/gtest.h>

#include "engine/global_strings.h"
#include "runtime/printer_setup.h"
#include "runtime/printing/dialog_fields.h"
#include "tests/support/patience.h"
#include "tests/support/program.h"

namespace peakwright {
namespace {

using Answer = std::function<void(QDialog&)>;

const Answer kAccept = &QDialog::accept;
const Answer kCancel = &QDialog::reject;
const Answer kLandscapeA4 = [](QDialog& dialog) {
  dialog.findChild<QRadioButton*>("landscape")->click();
  dialog.findChild<QComboBox*>("pagesPerSheetLayoutCombo")->setCurrentIndex(3);
  dialog.findChild<QComboBox*>("pageSizeCombo")->setCurrentText("A4");
  dialog.accept();
};
const Answer kQuit = [](QDialog&) { QCoreApplication::quit(); };

QString Read(const QString& command) {
  QProcess reader;
  reader.startCommand(command);
  EXPECT_TRUE(reader.waitForFinished(-1));
  return QString::fromUtf8(reader.readAllStandardOutput());
}

class Printing : public testing::Test {
 protected:
  /// Prints, with an answer for each dialog that comes up.
  void Print(const std::vector<Answer>& answers,
             const std::function<void()>& job = Module1::printer) {
    std::size_t dialogs = 0;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog != nullptr) (dialogs++ < answers.size() ? answers[dialogs - 1] : kCancel)(*dialog);
    });
    user.start(1);
    QTimer::singleShot(0, [&] {
      program_.Raise(job);
      QCoreApplication::quit();
    });
    QCoreApplication::exec();
    EXPECT_EQ(dialogs, answers.size());
  }

  /// What the block on each page holds; a form feed ends a page.
  std::string Printed(const std::string& text, const Answer& printDialog) {
    results_.Text(text);
    Print({kAccept, printDialog});
    EXPECT_EQ(program_.LastException(), "");
    return Read("pdftotext -fixed 9.6 -x 36 -y 36 -W 540 -H 720 " + file_ + " -").toStdString();
  }

  /// The size of the first sheet in the file, and where its words stand.
  std::pair<QSizeF, QRectF> FirstPage() const {
    std::pair<QSizeF, QRectF> page;
    for (const QString& element : Read("pdftotext -l 1 -bbox " + file_ + " -").split('<')) {
      QList<double> at;  // each number in its quotes
      for (const QString& part : element.split('"')) at << part.toDouble();
      if (element.startsWith("page ")) page.first = {at.at(1), at.at(3)};
      if (element.startsWith("word "))
        page.second |= QRectF({at.at(1), at.at(3)}, QPointF(at.at(5), at.at(7)));
    }
    return page;
  }

  void SetUp() override { Module1::psettings.clear(); }

  Program program_;
  DesktopTextArea& results_ = program_.Main().textfield2;
  QTemporaryDir folder_;
  QString file_ = folder_.filePath("results.pdf");
  Answer toFile_ = [this](QDialog& dialog) {
    dialog.findChild<QLineEdit*>("filename")->setText(file_);
    dialog.accept();
  };
};

std::string Rows(int first, int last) {
  std::string rows;
  for (int i = first; i <= last; ++i) {
    rows += QString::asprintf("%4d) 100.%04d  3  1     4   4.11 .01\n", i, i).toStdString();
  }
  return rows;
}

TEST_F(Printing, KeepsThePageSetupThatWasAcceptedLast) {
  const QList<double> lengths{700, 500, 31, 32, 33, 34};  // In points, as the toolkit has them.
  const auto fields = [](QDialog& dialog) {
    const PageSetupFields page(dialog);
    page.Unit->setCurrentIndex(2);
    emit page.Unit->activated(2);
    return QList{page.Width, page.Height, page.Left, page.Top, page.Right, page.Bottom};
  };
  const Answer fillIn = [&](QDialog& dialog) {
    const PageSetupFields page(dialog);
    page.Landscape->click();
    page.Paper->setCurrentText("Custom");
    page.PagesPerSheet->setCurrentIndex(3);
    page.SheetOrder->setCurrentIndex(7);
    for (int i = 0; i < lengths.size(); ++i) fields(dialog)[i]->setValue(lengths[i]);
    dialog.accept();
  };
  const Answer shows = [&](QDialog& dialog) {
    const PageSetupFields page(dialog);
    EXPECT_TRUE(page.Landscape->isChecked());
    EXPECT_EQ(page.PagesPerSheet->currentIndex(), 3);
    EXPECT_EQ(page.SheetOrder->currentIndex(), 7);
    constexpr double kRounding = 0.03;  // From 6.8 on it keeps hundredths of a millimetre.
    for (int i = 0; i < lengths.size(); ++i) {
      EXPECT_NEAR(fields(dialog)[i]->value(), lengths[i], kRounding) << i;
    }
    dialog.reject();
  };
  Print({kCancel});
  Print({kQuit});
  EXPECT_EQ(Module1::psettings, "");
  Print({fillIn, kQuit});
  Print({shows});
  const std::string kept = Module1::psettings;
  const std::string none = PrinterSetup().Settings();
  EXPECT_NE(kept, none);
  results_.Text("");
  Print({kAccept, toFile_});
  EXPECT_EQ(Module1::psettings, kept);
  EXPECT_FALSE(QFile::exists(file_)) << "an empty text";
  EXPECT_EQ(program_.LastException(), "");
  EXPECT_TRUE(QLoggingCategory::defaultCategory()->isWarningEnabled());
  for (const std::string& unreadable : {kept + " 1", "nan" + kept, "-" + kept, "9999" + kept,
                                        std::string("210 297 0 150 0 150 0 0 0")}) {
    PrinterSetup setup;
    setup.Settings(unreadable);
    EXPECT_EQ(setup.Settings(), none) << unreadable;
  }
}

TEST_F(Printing, PrintsEveryLineOnceAndAPageOnlyForALineThatDoesNotFit) {
  const std::string prose = "No word of this is cut, and none is lost at the end of";
  const std::string line(56, 'w');
  std::string printed =
      Printed(prose + " lines.\r\r1\t2\r" + line + "www\r" + Rows(1, 500) + "\r\r", toFile_);
  std::erase(printed, '\f');
  EXPECT_EQ(printed, prose + "\nlines.\n\n1       2\n" + line + "\nwww\n" + Rows(1, 500));

  QFont hundredfold = ToolkitSide::Of(results_)->font();
  hundredfold.setPixelSize(1600);
  const auto fit = static_cast<int>(72000 / QFontMetricsF(hundredfold).lineSpacing());
  EXPECT_EQ(Printed(Rows(1, fit) + "\r\t\r", toFile_), Rows(1, fit) + "\f");
  int pages = 2;
  const Answer secondPage = [&](QDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QSpinBox*>("to")->maximum(), pages);
    EXPECT_EQ(dialog.findChild<QSpinBox*>("to")->value(), pages++);
    dialog.findChild<QRadioButton*>("printRange")->setChecked(true);
    dialog.findChild<QSpinBox*>("to")->setValue(2);
    dialog.findChild<QSpinBox*>("from")->setValue(2);
    toFile_(dialog);
  };
  EXPECT_EQ(Printed(Rows(1, fit + 1), secondPage), Rows(fit + 1, fit + 1) + "\f");
  EXPECT_EQ(Printed(Rows(1, 2 * fit + 1), secondPage), Rows(fit + 1, 2 * fit) + "\f");
}

TEST_F(Printing, TellsThatTheFileCannotBeWritten) {
  results_.Text("text");
  file_ += "/results.pdf";
  Print({kAccept, toFile_});
  EXPECT_NE(program_.LastException().find(file_.toStdString()), std::string::npos);
  file_ = folder_.filePath("long.pdf");
  rlimit former{};
  getrlimit(RLIMIT_FSIZE, &former);
  const rlimit limit{512, former.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
  Print({kAccept, toFile_});
  setrlimit(RLIMIT_FSIZE, &former);
  EXPECT_NE(program_.LastException().find(file_.toStdString()), std::string::npos);
}

TEST_F(Printing, PutsEveryWordOnASheetOfAnyPaper) {
  QString words;
  for (int i = 1; i <= 320; ++i) words += QString::number(i) + (i % 9 == 0 ? "\r" : "\t");
  results_.Text("\xE2\x80\x8F" + words.toStdString());  // As if from right to left.
  for (const QPageSize::PageSizeId id :
       {QPageSize::A4, QPageSize::Letter, QPageSize::Legal, QPageSize::A0, QPageSize::A5,
        QPageSize::A10, QPageSize::Ledger, QPageSize::Envelope10, QPageSize::DoublePostcard}) {
    for (const char* orientation : {"portrait", "landscape"}) {
      const Answer paper = [&](QDialog& dialog) {
        dialog.findChild<QComboBox*>("pageSizeCombo")->setCurrentText(QPageSize::name(id));
        dialog.findChild<QRadioButton*>(orientation)->click();
        dialog.accept();
      };
      QFile::remove(file_);
      Print({paper, toFile_});
      const std::string where = QPageSize::name(id).toStdString() + " " + orientation;
      EXPECT_EQ(Read("pdftotext -raw " + file_ + " -").simplified(), words.simplified()) << where;
      const auto [sheet, text] = FirstPage();
      const double unit = std::min({1.0, sheet.width() / 594, sheet.height() / 774});
      EXPECT_NEAR(text.left(), 36 * unit, 1) << where;
      EXPECT_NEAR(text.top(), 36 * unit, 4 * unit) << where;
      EXPECT_LE(text.right(), sheet.width()) << where;
      EXPECT_LE(text.bottom(), sheet.height()) << where;
    }
  }
}

TEST_F(Printing, FindsEveryFieldInTheToolkitsDialogs) {
  QPrinter printer;
  const QPageSetupDialog pageSetup(&printer);
  const PageSetupFields page(pageSetup);
  ASSERT_TRUE(page.AreComplete());
  QStringList numbers;
  QStringList orders;  // of names such as "Left to Right, Top to Bottom"
  for (int row = 0; row < page.PagesPerSheet->count(); ++row) {
    numbers << page.PagesPerSheet->itemText(row).section(' ', 0, 0);
  }
  for (int row = 0; row < page.SheetOrder->count(); ++row) {
    orders << page.SheetOrder->itemText(row).remove(QRegularExpression("[^LRTB]")).toLower();
  }
  EXPECT_EQ(numbers, QStringList(kPagesPerSheet.begin(), kPagesPerSheet.end()));
  EXPECT_EQ(orders, QStringList(kSheetOrder.begin(), kSheetOrder.end()));
  const QPrintDialog printDialog(&printer);
  const PrintDialogFields print(printDialog);
  EXPECT_TRUE(print.Target && print.File && print.Copies && print.Reverse);
  EXPECT_TRUE(print.PageListIsChosen && print.PageList);
}

/// With a print server that has a PDF printer.
class PrintingOnPrinter : public Printing {
 protected:
  void SetUp() override {
    Printing::SetUp();
    if (QStandardPaths::findExecutable("cupsd", {"/usr/sbin", "/usr/bin"}).isEmpty()) {
      GTEST_SKIP() << "There is no print server on this machine.";
    }
    server_.start(PEAKWRIGHT_PRINT_SERVER, {printers_.path()});
    ASSERT_TRUE(WaitFor([] { return QPrinterInfo::availablePrinterNames().size() == 3; }));
  }

  void TearDown() override {
    server_.terminate();
    server_.waitForFinished(-1);
    printers_.removeRecursively();
  }

  /// Width and height of the sheets that came out of the printer, and their number.
  QString Sheets() {
    const QString sheets = printers_.filePath("out.pdf");
    EXPECT_TRUE(WaitFor([&] { return QFile::exists(sheets); }));
    const QString info = Read("pdfinfo " + sheets).simplified();
    QFile::remove(file_);
    QFile::rename(sheets, file_);
    return info.section("Pages: ", 1).section(' ', 0, 0) + " of " +
           info.section("Page size: ", 1).section(" pts", 0, 0);
  }

  QDir printers_ = QFileInfo(qEnvironmentVariable("CUPS_SERVER")).dir();
  QProcess server_;
};

TEST_F(PrintingOnPrinter, KeepsToThePageSetup) {
  results_.Text(Rows(1, 220));
  const auto givesUp = [this] {
    const std::unique_ptr<Graphics> page = PrinterSetup().ShowPrinterDialog(1);
    results_.StyledTextPrinter(*page, 540).DrawBlock(36, 36, 720);
    EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
    throw std::bad_alloc();
  };
  Print({kAccept}, givesUp);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  const Answer onLetter = [](QDialog& dialog) {
    QTimer::singleShot(0, &dialog, [] {
      auto* properties = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      EXPECT_EQ(properties->findChild<QComboBox*>("pagesPerSheetLayoutCombo")->currentIndex(), 3);
      EXPECT_EQ(properties->findChild<QComboBox*>("pageSizeCombo")->currentText(), "A4");
      properties->findChild<QComboBox*>("pageSizeCombo")->setCurrentText("Letter");
      properties->accept();
    });
    dialog.findChild<QPushButton*>("properties")->click();
    dialog.accept();
  };
  Print({kLandscapeA4, onLetter});
  EXPECT_EQ(Sheets(), "7 of 612 x 792") << "for this job";
  const Answer offers = [](QDialog& dialog) {
    const PrintDialogFields fields(dialog);
    EXPECT_TRUE(fields.Reverse->isHidden());
    EXPECT_TRUE(fields.Copies->isEnabled());
    fields.Copies->setValue(3);
    fields.Target->setCurrentIndex(fields.Target->count() - 1);
    EXPECT_FALSE(fields.Copies->isEnabled());
    EXPECT_EQ(fields.Copies->value(), 1) << "of a file";
    EXPECT_EQ(QFileInfo(fields.File->text()).fileName(), "Peakwright.pdf");
    fields.Target->setCurrentIndex(0);
    EXPECT_TRUE(fields.Copies->isEnabled());
    dialog.reject();
  };
  Module1::psettings.clear();
  Print({kAccept, offers});
  Print({kAccept, kAccept});
  EXPECT_EQ(Sheets(), "7 of 612 x 792") << "the printer's own paper";
  EXPECT_NEAR(FirstPage().second.left(), 36 + 2 * 9.6, 1) << "two blanks";
  const Answer secondPage = [](QDialog& dialog) {
    dialog.findChild<QRadioButton*>("pagesRadioButton")->setChecked(true);
    dialog.findChild<QLineEdit*>("pagesLineEdit")->setText("2");
    dialog.accept();
  };
  Print({kAccept, secondPage});
  EXPECT_EQ(Sheets(), "1 of 612 x 792");
  for (const QString setup : {"A4 0 portrait 7 of 595 x 842", "A4 2 portrait 2 of 595 x 842",
                              "A4 0 landscape 7 of 595 x 842", "Custom 0 portrait 7 of 500 x 700",
                              "Letter 0 portrait 7 of 612 x 792"}) {
    const QStringList chosen = setup.split(' ');
    const Answer setUp = [&](QDialog& dialog) {
      dialog.findChild<QComboBox*>("unitCombo")->setCurrentIndex(2);
      emit dialog.findChild<QComboBox*>("unitCombo")->activated(2);
      dialog.findChild<QRadioButton*>(chosen[2])->click();
      dialog.findChild<QComboBox*>("pageSizeCombo")->setCurrentText(chosen[0]);
      dialog.findChild<QDoubleSpinBox*>("pageWidth")->setValue(500.5);
      dialog.findChild<QDoubleSpinBox*>("pageHeight")->setValue(700.5);
      dialog.findChild<QDoubleSpinBox*>("topMargin")->setValue(99);
      dialog.findChild<QComboBox*>("pagesPerSheetCombo")->setCurrentIndex(chosen[1].toInt());
      dialog.findChild<QComboBox*>("pagesPerSheetLayoutCombo")->setCurrentIndex(5);
      dialog.accept();
    };
    Print({setUp, kAccept});
    EXPECT_EQ(Sheets(), setup.section(' ', 3)) << setup.toStdString();
    const QString top = Read("pdftotext -layout " + file_ + " -").section('\n', 0, 0);
    EXPECT_EQ(top.contains(" 37) "), chosen[1] == "2") << "beside the last of four pages";
    Print({kAccept, kAccept});
    EXPECT_EQ(Sheets(), setup.section(' ', 3)) << setup.toStdString();
  }
}

TEST_F(PrintingOnPrinter, TellsThatNothingIsPrinted) {
  results_.Text("text");
  const Answer closed = [](QDialog& dialog) {
    dialog.findChild<QComboBox*>("printers")->setCurrentText("closed");
    dialog.accept();
  };
  const Answer noPage = [](QDialog& dialog) {
    dialog.findChild<QRadioButton*>("pagesRadioButton")->setChecked(true);
    dialog.findChild<QLineEdit*>("pagesLineEdit")->setText("2,4-6");
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
  };
  const Answer gone = [this](QDialog& dialog) {
    TearDown();
    dialog.accept();
  };
  for (const auto& [answer, words] : {std::pair(closed, "\"closed\" did not take"),
                                      std::pair(noPage, "no such page, it ends with page 1."),
                                      std::pair(gone, "\"lab\" did not take")}) {
    Print({kAccept, answer});
    EXPECT_NE(program_.LastException().find(words), std::string::npos) << program_.LastException();
    EXPECT_EQ(results_.Text(), "text");
  }
  const std::string told = program_.LastException();
  Print({kAccept, toFile_});
  EXPECT_EQ(program_.LastException(), told) << "files have no server";
}

}  // namespace
}  // namespace peakwright

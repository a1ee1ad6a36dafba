#include "ui/printing.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <QPrinterInfo>
#include <QTest>
#include <QtWidgets>
#include <gtest/gtest.h>

#include "engine/global_strings.h"
#include "runtime/printer_setup.h"
#include "tests/support/patience.h"
#include "tests/support/program.h"

namespace peakwright {
namespace {

using Answer = std::function<void(QDialog&)>;

const Answer kAccept = &QDialog::accept;
const Answer kCancel = &QDialog::reject;
const Answer kLandscape = [](QDialog& dialog) {
  dialog.findChild<QRadioButton*>("landscape")->click();
  dialog.findChild<QDoubleSpinBox*>("leftMargin")->setValue(25);
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
  void Print(const std::vector<Answer>& answers) {
    std::size_t dialogs = 0;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog != nullptr) (dialogs++ < answers.size() ? answers[dialogs - 1] : kCancel)(*dialog);
    });
    user.start(1);
    QTimer::singleShot(0, [&] {
      program_.Raise(Module1::printer);
      QCoreApplication::quit();
    });
    QCoreApplication::exec();
    EXPECT_EQ(dialogs, answers.size());
  }

  /// What the block on each page holds; a form feed ends a page.
  std::string Printed(const std::string& text, const Answer& printDialog) {
    results_.Text(text);
    Print({kAccept, printDialog});
    return Read("pdftotext -fixed 9.6 -x 36 -y 36 -W 540 -H 720 " + file_ + " -").toStdString();
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
  Print({kCancel});
  Print({kQuit});
  EXPECT_EQ(Module1::psettings, "");
  Print({kLandscape, kQuit});
  const std::string kept = Module1::psettings;
  const std::string none = PrinterSetup().Settings();
  EXPECT_NE(kept, none);
  results_.Text("");
  Print({kAccept, toFile_});
  EXPECT_EQ(Module1::psettings, kept);
  EXPECT_FALSE(QFile::exists(file_)) << "an empty text";
  for (const std::string& unreadable : {kept + " 1", "nan" + kept, "-" + kept, "9999" + kept}) {
    PrinterSetup setup;
    setup.Settings(unreadable);
    EXPECT_EQ(setup.Settings(), none) << unreadable;
  }
}

TEST_F(Printing, PrintsEveryLineOnceAndAPageOnlyForALineThatDoesNotFit) {
  const std::string prose = "No word of this is cut, and none is lost at the end of";
  std::string printed = Printed(prose + " lines.\r\r" + Rows(1, 500) + "\r\r", toFile_);
  std::erase(printed, '\f');
  EXPECT_EQ(printed, prose + "\nlines.\n\n" + Rows(1, 500));

  QFont hundredfold = ToolkitSide::Of(results_)->font();
  hundredfold.setPixelSize(1600);
  const auto fit = static_cast<int>(72000 / QFontMetricsF(hundredfold).lineSpacing());
  EXPECT_EQ(Printed(Rows(1, fit) + "\r\r", toFile_), Rows(1, fit) + "\f");
  const Answer secondPage = [this](QDialog& dialog) {
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
  QStringList targets{file_ + "/results.pdf"};
  if (std::filesystem::is_character_file("/dev/full")) targets += "/dev/full";
  for (const QString& target : targets) {
    file_ = target;
    Print({kAccept, toFile_});
    EXPECT_NE(program_.LastException().find(target.toStdString()), std::string::npos);
  }
}

TEST_F(Printing, PutsEveryWordOnASheetOfAnyPaper) {
  QString words;
  for (int i = 1; i <= 320; ++i) words += QString::number(i) + (i % 9 == 0 ? "\r" : "\t");
  results_.Text(words.toStdString());
  int papers = 1;
  for (int i = 0; i < 2 * papers; ++i) {
    const Answer paper = [&, i](QDialog& dialog) {
      auto& list = *dialog.findChild<QComboBox*>("pageSizeCombo");
      papers = list.count();
      list.setCurrentIndex(i / 2);
      dialog.findChild<QRadioButton*>(i % 2 == 0 ? "portrait" : "landscape")->click();
      dialog.accept();
    };
    QFile::remove(file_);
    Print({paper, toFile_});
    EXPECT_EQ(Read("pdftotext -raw " + file_ + " -").simplified(), words.simplified()) << i;
  }
  EXPECT_GT(papers, 100);
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
    QFile::remove(sheets);
    return info.section("Pages: ", 1).section(' ', 0, 0) + " of " +
           info.section("Page size: ", 1).section(" pts", 0, 0);
  }

  QDir printers_ = QFileInfo(qEnvironmentVariable("CUPS_SERVER")).dir();
  QProcess server_;
};

TEST_F(PrintingOnPrinter, KeepsToThePageSetup) {
  results_.Text(Rows(1, 220));
  Print({kAccept, kAccept});
  EXPECT_EQ(Sheets(), "7 of 612 x 792") << "the printer's own paper";
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
      dialog.accept();
    };
    Print({setUp, kAccept});
    EXPECT_EQ(Sheets(), setup.section(' ', 3)) << setup.toStdString();
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
    dialog.accept();
  };
  const Answer gone = [this](QDialog& dialog) {
    TearDown();
    dialog.accept();
  };
  for (const auto& [answer, words] :
       {std::pair(closed, "\"closed\" did not take"), std::pair(noPage, "no such page"),
        std::pair(gone, "\"lab\" did not take")}) {
    Print({kAccept, answer});
    EXPECT_NE(program_.LastException().find(words), std::string::npos) << program_.LastException();
    EXPECT_EQ(results_.Text(), "text");
  }
}

}  // namespace
}  // namespace peakwright

#include "ui/printing.h"

#include <functional>
#include <string>
#include <vector>

#include <QtWidgets>
#include <gtest/gtest.h>

#include "engine/global_strings.h"
#include "runtime/printer_setup.h"
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
    program_.Raise(Module1::printer);
    EXPECT_EQ(dialogs, answers.size());
  }

  /// What the block on each page holds; a form feed ends a page.
  std::string Printed(const std::string& text, const Answer& printDialog) {
    results_.Text(text);
    Print({kAccept, printDialog});
    QProcess reader;
    reader.startCommand("pdftotext -fixed 9.6 -x 36 -y 36 -W 540 -H 720 " + file_ + " -");
    EXPECT_TRUE(reader.waitForFinished());
    return reader.readAllStandardOutput().toStdString();
  }

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
  Module1::psettings.clear();
  Print({kCancel});
  EXPECT_EQ(Module1::psettings, "");
  Print({kLandscape, kCancel});
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

  QFont hundredfold = results_.Native()->font();
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
  for (const QString& target : {file_ + "/results.pdf", QString("/dev/full")}) {
    file_ = target;
    Print({kAccept, toFile_});
    EXPECT_NE(program_.LastException().find(target.toStdString()), std::string::npos);
  }
}

}  // namespace
}  // namespace peakwright

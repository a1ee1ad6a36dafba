// What becomes of a command when there is no memory for it, each in a process of its own.

#if __has_include(<sys/resource.h>)
#include <sys/resource.h>
#include <unistd.h>
#endif

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

#include "tests/support/program.h"

namespace peakwright {
namespace {

#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__)

struct Command {
  const char* needs;  // As the user is told, or nothing.
  void (*give)();
};

const Command kCommands[] = {
    {"the listing", [] { TextWindow::Instance().Pushbutton1.Press(); }},
    {"printing", [] { Program::Choose("FilePrint"); }},
    {"the check for updates", [] { Program::Choose("FileUpdate"); }},
    {"", [] { ToolkitSide::Of(TextWindow::Instance())->resize(4000, 3000); }},
};

/// Lets the process grow by so much from now on; or, without a number, as it likes.
void LimitMemory(rlim_t megabytes = 0) {
  rlimit limit{};
  getrlimit(RLIMIT_AS, &limit);
  rlim_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  limit.rlim_cur = megabytes == 0 ? limit.rlim_max : pages * 4096 + (megabytes << 20);
  setrlimit(RLIMIT_AS, &limit);
}

QMessageBox* Box() {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (auto* box = qobject_cast<QMessageBox*>(widget); box && box->isVisible()) return box;
  }
  return nullptr;
}

/// Accepts the dialogs that come up, the last with a file to print to.
void Accept(QDialog& dialog, const QString& file) {
  if (auto* field = dialog.findChild<QLineEdit*>("filename")) field->setText(file);
  dialog.accept();
}

/// Ends the process: with 0 if the command was done, or undone and the user told; and a small run,
/// in the same memory, comes out afterwards.
[[noreturn]] void Give(const Command& command, rlim_t megabytes) {
  int argc = 0;
  App app(argc, nullptr, {.IsConnected = [] { return false; }});
  app.Start();
  TextWindow& main = TextWindow::Instance();
  main.textfield1.Text("2000");
  main.PushButton2.Press();
  main.Pushbutton1.Press();
  QTest::qWait(1);
  const std::string before = main.textfield2.Text();
  const QString file = QDir::temp().filePath(QString("peakwright-%1.pdf").arg(getpid()));
  QTimer user;
  QObject::connect(&user, &QTimer::timeout, [&] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog != nullptr && dialog != Box()) Accept(*dialog, file);
  });
  user.start(1);
  LimitMemory(megabytes);
  QTimer::singleShot(0, qApp, [&] { command.give(); });
  QTest::qWait(50);
  const QString told = Box() != nullptr ? Box()->informativeText() : QString();
  if (Box() != nullptr) Box()->button(QMessageBox::Ok)->click();
  const std::int64_t length = main.textfield2.TextLength();
  main.textfield1.Text("58");
  main.Pushbutton1.Press();
  const bool goesOn = main.textfield2.TextLength() - length == 600 && Box() == nullptr;
  LimitMemory();
  QFile::remove(file);
  std::string expected = before;
  if (command.give == kCommands[0].give && told.isEmpty()) expected += before;
  const bool isWhole = main.textfield2.Text().compare(0, expected.size(), expected) == 0 &&
                       length == static_cast<std::int64_t>(expected.size());
  const QString sentence = QString("There is not enough memory for %1.").arg(command.needs);
  const bool isSaid = told == sentence || (told.isEmpty() && megabytes > 16);
  std::cerr << "told: " << told.toStdString() << ", whole: " << isWhole << ", goes on: " << goesOn;
  _exit(isWhole && goesOn && (isSaid || *command.needs == '\0') ? 0 : 1);
}

TEST(LittleMemory, LeavesTheResultsWholeAndTellsWhatItDidNotSufficeFor) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  for (const Command& command : kCommands) {
    for (const rlim_t megabytes : {2, 16, 66, 128}) {
      EXPECT_EXIT(Give(command, megabytes), testing::ExitedWithCode(0), "")
          << command.needs << " in " << megabytes;
    }
  }
}

#endif

}  // namespace
}  // namespace peakwright

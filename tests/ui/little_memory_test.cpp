// What becomes of a command when there is no memory for it, each in a process of its own.

#include <fstream>
#include <iostream>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QTimer>
#include <gtest/gtest.h>

#include "runtime/memory.h"
#include "tests/support/listing_58.h"
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

/// Ends the process: with 0 if the command was done, or left no trace and the user was told; and a
/// small run goes in what memory there is.
[[noreturn]] void Give(const Command& command, rlim_t megabytes) {
  int argc = 0;
  App app(argc, nullptr, {.IsConnected = [] { return false; }});
  app.Start();
  DesktopTextArea& results = TextWindow::Instance().textfield2;
  const auto run = [](const char* mass) {
    TextWindow::Instance().textfield1.Text(mass);
    TextWindow::Instance().Pushbutton1.Press();
  };
  results.Text("");
  run("2000");
  QApplication::processEvents();
  std::string expected = results.Text();
  const QString file = QDir::temp().filePath(QString("peakwright-%1.pdf").arg(getpid()));
  QTimer user;
  QObject::connect(&user, &QTimer::timeout, [&] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || dialog == Program::Box()) return;
    if (auto* field = dialog->findChild<QLineEdit*>("filename")) field->setText(file);
    dialog->accept();
  });
  user.start(1);
  LimitMemory(megabytes);
  command.give();
  QApplication::processEvents();
  QString told;
  if (QMessageBox* box = Program::Box()) told = box->informativeText(), box->accept();
  run("58");
  LimitMemory(256);
  for (int look = 0; look < 4; ++look) RequireMemory(128 << 20);
  EXPECT_THROW(RequireMemory(320 << 20), std::bad_alloc);
  LimitMemory();
  QFile::remove(file);
  if (command.give == kCommands[0].give && told.isEmpty()) expected += expected;
  const bool isWhole = results.Text() == expected + kListing58 && Program::Box() == nullptr;
  const QString sentence = QString("There is not enough memory for %1.").arg(command.needs);
  const bool mayGo = told.isEmpty() && (megabytes > 16 || *command.needs == '\0');
  std::cerr << "told: " << told.toStdString() << ", whole: " << isWhole;
  _exit(!testing::Test::HasFailure() && isWhole && (told == sentence || mayGo) ? 0 : 1);
}

TEST(LittleMemory, LeavesTheResultsWholeAndTellsWhatItDidNotSufficeFor) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  for (const Command& command : kCommands) {
    for (const rlim_t megabytes : {2U, 16U, 66U, 128U}) {
      EXPECT_EXIT(Give(command, megabytes), testing::ExitedWithCode(0), "")
          << command.needs << " in " << megabytes;
    }
  }
}

#endif

}  // namespace
}  // namespace peakwright

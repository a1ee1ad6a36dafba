#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>

#include "tests/support/patience.h"
#include "tests/support/program.h"
#include "update/update_window.h"

namespace peakwright {
namespace {

/// The program with its own box for exceptions.
class Ending : public testing::Test {
 protected:
  Ending() {
    app_.Start();
    Program::Choose("FileUpdate");
    window_ = ToolkitSide::Of(Update());
  }

  static WindowDownload& Update() { return WindowDownload::Instance(); }

  int argc_ = 0;
  App app_{argc_, nullptr, {.IsConnected = [] { return false; }}};
  QPointer<QWidget> window_;
};

TEST_F(Ending, OfAWindowWaitsForItsHandlers) {
  Update().PushButton1.Pressed = [&] {
    Update().Close();
    QTest::qWait(50);  // As a dialog would.
    EXPECT_NE(window_, nullptr);
  };
  QTest::mouseClick(ToolkitSide::Of(Update().PushButton1), Qt::LeftButton);
  app_.Raise([&] {  // Before the event loop has come to it.
    QTest::qWait(50);
    EXPECT_NE(window_, nullptr);
  });
  EXPECT_TRUE(WaitFor([&] { return window_ == nullptr; }));
}

TEST_F(Ending, OfAWindowLeavesTheBoxForExceptions) {
  std::string what = "no luck";
  Update().PushButton1.Pressed = [&] { throw std::runtime_error(what); };
  TextWindow::Instance().CheckForUpdates = Update().PushButton1.Pressed;
  ToolkitSide::Of(Update())->activateWindow();
  Update().PushButton1.Press();
  ASSERT_NE(Program::Box(), nullptr) << "the handler has returned";
  Update().Close();
  EXPECT_TRUE(WaitFor([&] { return window_ == nullptr; }));
  for (const char* next : {"no luck", "<b>again</b>"}) {
    what = next;
    Program::Choose("FileUpdate");
  }
  EXPECT_EQ(Program::Box()->informativeText(), "no luck\n<b>again</b>");
  EXPECT_EQ(QApplication::activeModalWidget(), Program::Box());
  Program::Box()->button(QMessageBox::Ok)->click();
  EXPECT_EQ(Program::Box(), nullptr);
  Program::Choose("FileUpdate");
  EXPECT_EQ(Program::Box()->informativeText(), "<b>again</b>");
  for (auto* label : Program::Box()->findChildren<QLabel*>())
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
  app_.Raise([] { throw std::bad_alloc(); });
  EXPECT_TRUE(Program::Box()->informativeText().endsWith("There is not enough memory for it."));
  // The program ends with the box up.
}

}  // namespace
}  // namespace peakwright

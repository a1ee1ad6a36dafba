// What the user does while the program waits for the update server.

#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <gtest/gtest.h>

#include "engine/global_strings.h"
#include "runtime/application/held_input.h"
#include "tests/support/listing_58.h"
#include "tests/support/patience.h"
#include "tests/support/program.h"
#include "update/update_window.h"

namespace peakwright {
namespace {

class Check : public testing::Test {
 protected:
  Check() {
    server_.listen(QHostAddress::LocalHost);
    EXPECT_TRUE(Module1::websource.starts_with("https://") && Module1::websource.ends_with("/"));
    EXPECT_EQ(Module1::appname, "Peakwright.app");
    EXPECT_TRUE(Module1::version.starts_with(qApp->applicationVersion().toStdString() + ' '));
    EXPECT_EQ(QGuiApplication::desktopFileName(), "peakwright") << "as its file is called";
    Module1::websource = "https://127.0.0.1:" + std::to_string(server_.serverPort()) + "/";
  }

  /// Chooses the command. The server takes the call and keeps silent.
  void Begin() {
    Program::Choose("FileUpdate");
    ASSERT_TRUE(WaitFor([&] { return server_.hasPendingConnections(); }));
    call_ = server_.nextPendingConnection();
  }

  void End() { call_->disconnectFromHost(); }

  static bool IsShown() { return Program::Shown(WindowDownload::Instance()); }

  Program program_{{.IsConnected = [] { return true; }}};
  QWindow* window_ = ToolkitSide::Of(program_.Main())->windowHandle();
  QTcpServer server_;
  QTcpSocket* call_ = nullptr;
};

TEST_F(Check, KeepsWhatTheUserDoesAndCarriesItOutAfterwards) {
  TextWindow& main = program_.Main();
  QMimeData dragged;
  dragged.setText(QStringLiteral("7"));
  QDragEnterEvent enter({}, Qt::CopyAction, &dragged, {}, {});
  QApplication::sendEvent(ToolkitSide::Of(main.textfield1), &enter);
  Program::Key(main.textfield1, Qt::Key_A, Qt::ControlModifier);
  main.Pushbutton1.Press();
  const auto top = main.textfield2.VerticalScrollPosition();
  const std::string before = program_.Results();
  EXPECT_NE(before.find("\n  Copyright"), std::string::npos);
  Begin();
  main.PushButton2.Press();  // As assistive tools do.
  QInputMethodEvent five;
  five.setCommitString(QStringLiteral("5"));
  QApplication::sendEvent(ToolkitSide::Of(main.textfield1), &five);
  for (const auto& key : {Qt::Key_8, Qt::Key_Return}) QTest::keyClick(window_, key);
  QDragEnterEvent again({}, Qt::CopyAction, &dragged, {}, {});
  QDropEvent drop({}, Qt::CopyAction, &dragged, {}, {});
  for (QEvent* event : {static_cast<QEvent*>(&drop), static_cast<QEvent*>(&again)}) {
    QApplication::sendEvent(ToolkitSide::Of(main.textfield1), event);
    EXPECT_FALSE(event->isAccepted());
  }
  main.checkbox1.Value(true);
  QTest::keyClick(window_, Qt::Key_R, Qt::ControlModifier);
  const QPoint more = ToolkitSide::Of(main.PushButton3)->mapTo(ToolkitSide::Of(main), QPoint(8, 8));
  QTest::mouseClick(window_, Qt::LeftButton, {}, more);
  QTest::mouseDClick(window_, Qt::LeftButton, {}, QPoint(100, 300));
  QWheelEvent wheel({100, 300}, {100, 300}, {}, {0, 240}, {}, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(window_, &wheel);
  Program::Choose("FileUpdate");
  Program::Choose("FileElementdata");
  QTest::qWait(50);
  EXPECT_EQ(main.textfield1.Text(), "100");
  const QAction& isotopes = *ToolkitSide::Of(*Menu::Instance().Lookup("FileElementdata"));
  EXPECT_FALSE(isotopes.isChecked());
  EXPECT_EQ(program_.Results(), before);
  EXPECT_EQ(main.textfield2.VerticalScrollPosition(), top);
  EXPECT_FALSE(IsShown());
  End();
  ASSERT_TRUE(WaitFor([] { return IsShown(); }));
  EXPECT_TRUE(WindowDownload::Instance().StaticText1.Text().starts_with("Web connection was"));
  const std::string results = program_.Results();
  EXPECT_TRUE(results.starts_with(kListing58)) << results;
  std::size_t listings = 0;
  for (std::size_t at = 0; (at = results.find("MASS", at)) != std::string::npos; ++at) ++listings;
  EXPECT_EQ(listings, 3U) << "Return, the check box, and Ctrl+R";
  EXPECT_GT(results.find("other 11 possible valid"), results.rfind("MASS"));
  EXPECT_LT(results.find("other 11 possible valid"), results.size()) << "the click came last";
  EXPECT_FALSE(server_.hasPendingConnections()) << "one check";
  EXPECT_TRUE(isotopes.isChecked());
}

TEST_F(Check, ClosesItsWindowAfterwardsIfAskedMeanwhile) {
  Begin();
  const QPointer<QWidget> window = ToolkitSide::Of(WindowDownload::Instance());
  Program::Choose("FileUpdate");
  WindowDownload::Instance().PushButton1.Press();
  WindowDownload::Instance().PushButton1.Press();
  Program::Choose("FileUpdate");
  ToolkitSide::Input().Keep(*window, [] { ADD_FAILURE() << "for a window that is gone"; });
  QTest::keyClick(window_, Qt::Key_7);
  QTest::qWait(50);
  EXPECT_NE(window, nullptr);
  End();
  ASSERT_TRUE(WaitFor([&] { return window == nullptr && server_.hasPendingConnections(); }));
  call_ = server_.nextPendingConnection();
  EXPECT_EQ(program_.Main().textfield1.Text(), "100") << "while the next check waits";
  program_.Raise([&] {  // As a handler that hasn't returned.
    WindowDownload::Instance().Close();
    EXPECT_TRUE(WaitFor([&] { return call_->state() == QTcpSocket::UnconnectedState; }));
  });
  Program::Type(program_.Main().textfield1, "58");
  QTest::keyClick(window_, Qt::Key_Return);
  EXPECT_TRUE(program_.Results().ends_with(kListing58)) << "nobody waits any more";
}

TEST_F(Check, EndsAtOnceWithTheProgram) {
  const std::function<void()> kEnds[] = {
      [&] { QTest::keyClick(window_, Qt::Key_Q, Qt::ControlModifier); },
      [] { Program::Choose("FileQuit"); },
      [&] {
        Program::Focus(program_.Main().textfield1);
        QTest::keyClick(window_, Qt::Key_F, Qt::AltModifier);
        EXPECT_NE(QApplication::activePopupWidget(), nullptr);
        QTest::keyClick(window_, Qt::Key_Escape);
        QTest::mousePress(window_, Qt::LeftButton, {}, QPoint(8, 8));
        QWidget* menu = QApplication::activePopupWidget();
        for (const auto& key : {Qt::Key_Up, Qt::Key_Return}) {
          if (menu != nullptr) QTest::keyClick(menu->windowHandle(), key);
        }
      },
      [] {
        QEvent request(QEvent::Quit);
        QCoreApplication::sendEvent(QCoreApplication::instance(), &request);
        EXPECT_TRUE(request.isAccepted());
      },
      [&] { EXPECT_TRUE(window_->close()); },
  };
  Window3::Instance().Show();  // A window without a close button is no objection.
  QTimer limit;
  QObject::connect(&limit, &QTimer::timeout, [] { DesktopApplication::Current().Quit(1); });
  for (const auto& end : kEnds) {
    limit.start(kPatience);
    QTimer::singleShot(0, &server_, [&] {
      Begin();
      end();
    });
    EXPECT_EQ(program_.Run(), 0);
    EXPECT_FALSE(IsShown()) << "the check was still waiting";
    WindowDownload::Instance().Close();
    QTest::qWait(10);
  }
  QTimer::singleShot(0, &server_, [] { DesktopApplication::Current().Quit(7); });
  EXPECT_EQ(program_.Run(), 7);
}

}  // namespace
}  // namespace peakwright

// The main window under its user's keys and clicks.

#include <stdexcept>
#include <vector>

#include <QAbstractScrollArea>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QScrollBar>
#include <QTimer>
#include <gtest/gtest.h>

#include "engine/run.h"
#include "tests/support/listing_58.h"
#include "tests/support/plain_controls.h"
#include "tests/support/program.h"
#include "update/update_window.h"

namespace peakwright {
namespace {

TEST(MainWindow, ListsAMassTypedAndReturned) {
  Program program;
  TextWindow& main = program.Main();
  const std::string start = program.Results();
  EXPECT_EQ(start.substr(0, 26), "  Version 1.70 December 28");
  QTest::keyClicks(ToolkitSide::Of(main.textfield1), QStringLiteral("58.9"));
  Program::Key(main.textfield1, Qt::Key_Return);
  EXPECT_EQ(main.textfield1.Text(), "58");
  EXPECT_EQ(program.Results(), start + kListing58);

  Program::Type(main.textfield1, "benzene");
  Program::Key(main.textfield1, Qt::Key_Enter);
  EXPECT_EQ(main.textfield1.Text(), "0");
  EXPECT_EQ(program.Results(),
            start + kListing58 + "Insufficient mass remaining for C, H, N, or O.\r\r");
}

TEST(MainWindow, ListsThousandsOfRows) {
  Program program;
  TextWindow& main = program.Main();
  const std::string start = program.Results();
  PlainControls expected;
  expected.mass = "700";
  Module1::calculate(expected);
  Program::Type(main.textfield1, "700");
  Program::Key(main.textfield1, Qt::Key_Return);
  EXPECT_EQ(program.Results(), start + expected.results);
}

TEST(MainWindow, ReturnRunsAndEscapeClearsFromEveryControl) {
  Program program;
  TextWindow& main = program.Main();
  Program::Type(main.textfield1, "58");
  for (const DesktopUIControl* control :
       Controls{&main.textfield1, &main.Pushbutton1, &main.checkbox1, &main.CheckBox2,
                &main.PushButton2, &main.PushButton3}) {
    Program::Key(*control, Qt::Key_Escape);
    EXPECT_EQ(program.Results(), "");
    Program::Key(*control, Qt::Key_Return);
    EXPECT_EQ(program.Results(), kListing58);
  }
  Program::Key(main.textfield2, Qt::Key_Escape);
  EXPECT_EQ(program.Results(), "");
  Program::Key(main.textfield2, Qt::Key_Return);
  EXPECT_EQ(program.Results(), "\r");
  EXPECT_EQ(main.textfield1.Text(), "58");
}

TEST(MainWindow, TabFollowsTheOrderOutOfTheResultsToo) {
  Program program;
  TextWindow& main = program.Main();
  Program::Focus(main.textfield1);
  for (const DesktopUIControl* next :
       Controls{&main.Pushbutton1, &main.checkbox1, &main.textfield2, &main.CheckBox2,
                &main.PushButton2, &main.PushButton3, &main.textfield1}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), ToolkitSide::Of(*next));
  }
  Program::Choose("FileElementdata");
  Program::Key(Window3::Instance().ListBox1, Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), ToolkitSide::Of(Window3::Instance().PushButton1));
}

TEST(MainWindow, MenusHaveALetterForEachItemAndTellTheKeysOfTheEditing) {
  Program program;
  for (const QAction* title : ToolkitSide::Of(Menu::Instance())->actions()) {
    QString letters;
    for (const QAction* item : title->menu()->actions()) {
      if (item->isSeparator()) continue;
      letters += item->text()[item->text().indexOf('&') + 1].toLower();
      EXPECT_EQ(letters.count(letters.back()), 1) << item->text().toStdString();
      EXPECT_FALSE(title->text() == "&Edit" && item->shortcut().isEmpty());
    }
  }
}

TEST(MainWindow, CopiesCutsAndPastesByTheMenu) {
  Program program;
  const DesktopTextArea& results = program.Main().textfield2;
  Program::Type(results, "ab");
  Program::Key(results, Qt::Key_A, Qt::ControlModifier);
  Program::Choose("EditCopy");
  EXPECT_EQ(program.Results(), "ab");
  Program::Choose("EditCut");
  EXPECT_EQ(program.Results(), "");
  for (const char* command : {"EditPaste", "EditPaste"}) Program::Choose(command);
  EXPECT_EQ(program.Results(), "abab");
}

TEST(MainWindow, BoxAndMenuItemAreOne) {
  Program program;
  TextWindow& main = program.Main();
  Program::Type(main.textfield1, "1");
  Program::Choose("FileClear");
  const std::string none =
      "    MASS     1  C  H  N  O    M+1    M+2  RDB\r"
      "   ----------- -- -- -- --   ----   ----  ---\r\rThere are no valid combinations.\r\r";
  Program::Click(main.checkbox1);
  EXPECT_EQ(program.Results(), "Nitrogen rule applied:\r" + none);
  EXPECT_TRUE(Program::Marked("FileApplynitrogenrule"));
  main.checkbox1.Value(true);
  EXPECT_EQ(program.Results(), "Nitrogen rule applied:\r" + none) << "no change, no run";
  Program::Choose("FileClear");
  Program::Choose("FileApplynitrogenrule");
  EXPECT_FALSE(main.checkbox1.Value());
  EXPECT_FALSE(Program::Marked("FileApplynitrogenrule"));
  EXPECT_TRUE(program.Results().starts_with(none.substr(0, 20)));
}

TEST(MainWindow, WritesAtTheInsertionPointAndScrollsBelowTheOldEnd) {
  Program program;
  TextWindow& main = program.Main();
  Program::Choose("FileClear");
  Program::Type(main.textfield2, "ab");
  QTest::keyClick(ToolkitSide::Of(main.textfield2), Qt::Key_Left, Qt::ShiftModifier);
  Program::Type(main.textfield1, "58");
  Program::Choose("FileRun");
  EXPECT_EQ(program.Results(), "a" + kListing58);
  main.CheckBox2.Value(true);
  ToolkitSide::Of(main)->showMinimized();
  Window1& panel = Window1::Instance();
  using Case = std::pair<std::function<void()>, std::int64_t>;
  for (const auto& [command, step] : {Case{[&] { Program::Click(panel.PushButton3); }, 20},
                                      Case{[] { Program::Choose("FileRun"); }, 20},
                                      Case{[] { Program::Choose("FileMoreinfo"); }, 10},
                                      Case{[] { Program::Choose("FileAbout"); }, 10}}) {
    main.textfield1.Text("200");
    const std::int64_t end = main.textfield2.LineNumber(main.textfield2.TextLength());
    command();
    EXPECT_FALSE(ToolkitSide::Of(main)->isMinimized());
    const int last = static_cast<QAbstractScrollArea*>(ToolkitSide::Of(main.textfield2))
                         ->verticalScrollBar()
                         ->maximum();
    EXPECT_EQ(main.textfield2.VerticalScrollPosition(), std::min<std::int64_t>(end + step, last));
  }
}

TEST(MainWindow, TakesItsShortcutsFromEveryWindow) {
  Program program;
  TextWindow& main = program.Main();
  Program::Choose("FileElementdata");
  Window2::Instance().Edit(0);
  int checks = 0;
  main.CheckForUpdates = [&] { ++checks; };
  Program::Type(main.textfield1, "58");
  for (const DesktopUIControl* control :
       Controls{&main.textfield2, &Window1::Instance().textfield1(0),
                &Window2::Instance().textfield1(0), &Window3::Instance().ListBox1}) {
    Program::Choose("FileClear");
    Program::Key(*control, Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(program.Results(), kListing58);
    Program::Key(*control, Qt::Key_U, Qt::ControlModifier);
  }
  EXPECT_EQ(checks, 4);
}

TEST(MainWindow, RunAndClearAreUndone) {
  Program program;
  TextWindow& main = program.Main();
  const std::string start = program.Results();
  QApplication::processEvents();
  Program::Choose("FileRun");
  Program::Focus(main.textfield2);
  QTest::keySequence(ToolkitSide::Of(main.textfield2), QKeySequence::Undo);
  EXPECT_EQ(program.Results(), start) << "one step takes back a whole run";
  Program::Key(main.textfield2, Qt::Key_Escape);
  ASSERT_EQ(program.Results(), "");
  DesktopMenuItem& edit = *Menu::Instance().Child("Edit");
  QApplication::clipboard()->setText(QStringLiteral("pasted"));
  ToolkitSide::MenuOf(edit).popup({});
  EXPECT_TRUE(ToolkitSide::Of(*edit.Child("EditUndo"))->isEnabled());
  EXPECT_FALSE(ToolkitSide::Of(*edit.Child("EditCut"))->isEnabled());
  EXPECT_TRUE(ToolkitSide::Of(*edit.Child("EditPaste"))->isEnabled());
  ToolkitSide::MenuOf(edit).close();
  Program::Choose("EditUndo");
  EXPECT_EQ(program.Results(), start);
  QTest::keySequence(ToolkitSide::Of(main.textfield2), QKeySequence::Redo);
  EXPECT_EQ(program.Results(), "");
}

TEST(MainWindow, TakesTheNextMassAfterAnyClick) {
  Program program;
  TextWindow& main = program.Main();
  EXPECT_LE(main.Top() + 340, 400) << "the panels stand above the isotopes window";
  main.CheckBox2.Value(true);
  Window1& panel = Window1::Instance();
  for (const DesktopUIControl* clicked :
       Controls{&main.Pushbutton1, &main.PushButton2, &main.PushButton3, &main.checkbox1,
                &main.MassText, &panel.PushButton3, &panel.PushButton1}) {
    Program::Focus(*(ToolkitSide::Of(*clicked)->window() == ToolkitSide::Of(main) ? &main.textfield2
                                                                                  : clicked));
    Program::Click(*clicked);
    Program::Choose("FileClear");
    QTest::keyClicks(ToolkitSide::Of(main)->focusWidget(), QStringLiteral("58"));
    QTest::keyClick(ToolkitSide::Of(main)->focusWidget(), Qt::Key_Return);
    EXPECT_NE(program.Results().find(kListing58.substr(0, 40)), std::string::npos);
  }
}

TEST(MainWindow, KeysReachTheResultsAndTheMenuBarFromEveryWindow) {
  Program program;
  TextWindow& main = program.Main();
  main.CheckBox2.Value(true);
  const std::string start = program.Results();
  for (const DesktopUIControl* from :
       Controls{&main.textfield1, &main.Pushbutton1, &Window1::Instance().textfield1(0)}) {
    Program::Choose("FileClear");
    Program::Key(*from, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(program.Results(), start);
    QTest::keySequence(ToolkitSide::Of(*from), QKeySequence::Redo);
    EXPECT_EQ(program.Results(), "");
    Program::Choose("EditUndo");
    QTest::keyClick(ToolkitSide::Of(*from), Qt::Key_J, Qt::AltModifier);
    EXPECT_NE(ToolkitSide::Of(*from)->property("text").toString(), "j");
    QTest::keyClick(ToolkitSide::Of(*from), Qt::Key_F10);
    ASSERT_EQ(QApplication::activePopupWidget(),
              &ToolkitSide::MenuOf(*Menu::Instance().Child("File")));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(ToolkitSide::Of(*from)->window()->focusWidget(), ToolkitSide::Of(*from));
    EXPECT_FALSE(ToolkitSide::Of(main)->focusWidget()->inherits("QMenuBar"));
    EXPECT_EQ(program.Results(), start);
  }
}

/// The field that keys go to, what of it is selected, and where its caret is.
std::string Typing() {
  const auto* field = qobject_cast<const QLineEdit*>(QApplication::focusWidget());
  if (field == nullptr) return "no field";
  return field->text().toStdString() + "|" + field->selectedText().toStdString() + "|" +
         std::to_string(field->cursorPosition()) + "|" + std::to_string(field->x() + field->y());
}

TEST(MainWindow, LeavingAMenuLeavesTheFieldAsItWas) {
  Program program({.IsConnected = [] { return false; }});
  TextWindow& main = program.Main();
  main.CheckBox2.Value(true);
  Window2::Instance().Edit(0);
  Program::Choose("FileUpdate");
  QApplication::processEvents();
  for (const DesktopUIControl* control :
       Controls{&main.textfield1, &Window1::Instance().textfield1(2),
                &Window2::Instance().textfield1(4), &WindowDownload::Instance().EditField1}) {
    auto& field = static_cast<QLineEdit&>(*ToolkitSide::Of(*control));
    for (const auto& [from, length] : {std::pair(0, 3), std::pair(1, -1), std::pair(1, 0)}) {
      field.setText("100");
      Program::Focus(*control);
      field.setSelection(from, length);
      const std::string before = Typing();
      ASSERT_NE(before, "no field");
      for (const auto& [opening, leaving] :
           {std::pair("F10", Qt::Key_Escape), std::pair("Alt+F", Qt::Key_Escape),
            std::pair("Alt+F", Qt::Key_M), std::pair("Alt+E", Qt::Key_Escape)}) {
        QTest::keySequence(field.window()->windowHandle(), QKeySequence(QString(opening)));
        ASSERT_NE(QApplication::activePopupWidget(), nullptr) << opening;
        QTest::keyClick(QApplication::activePopupWidget(), leaving);
        QApplication::processEvents();
        EXPECT_EQ(Typing(), before) << opening << ' ' << leaving;
      }
    }
  }
}

TEST(MainWindow, ResizesTheResultsOnARealChangeOnly) {
  Program program;
  TextWindow& main = program.Main();
  QApplication::processEvents();
  const QSize frame = ToolkitSide::Of(main)->size() - ToolkitSide::ContentOf(main)->size();
  struct Case {
    QSize window, results;
  };
  for (const Case& size :
       {Case{{600, 700}, {575, 640}}, Case{{500, 650}, {475, 590}}, Case{{64, 64}, {39, 4}}}) {
    ToolkitSide::Of(main)->resize(size.window + frame);
    QApplication::processEvents();
    EXPECT_EQ(ToolkitSide::Of(main.textfield2)->size(), size.results);
    EXPECT_EQ(ToolkitSide::Of(main.textfield2)->pos(), QPoint(8, 48));
  }
}

TEST(MainWindow, EndsOnItsDisplayAndTheResultsGiveWay) {
  Program program;
  TextWindow& main = program.Main();
  const int display = QApplication::primaryScreen()->availableGeometry().bottom() + 1;
  EXPECT_LE(ToolkitSide::Of(main)->frameGeometry().bottom() + 1, display);
  EXPECT_EQ(main.Height() < 650, display < 700) << main.Height() << " on " << display;
  EXPECT_EQ(ToolkitSide::Of(main.textfield2)->geometry(), QRect(8, 48, 492, main.Height() - 50));
}

TEST(MainWindow, GoesOnAfterAnExceptionAndEndsWithZero) {
  Program program;
  TextWindow& main = program.Main();
  const std::string before = program.Results();
  main.CheckForUpdates = [] { throw std::runtime_error("no luck"); };
  Program::Choose("FileUpdate");
  EXPECT_EQ(program.LastException(), "no luck");
  EXPECT_EQ(program.Results(), before);
  for (const auto& end : {std::function<void()>([&] { ToolkitSide::Of(main)->close(); }),
                          std::function<void()>([] { Program::Choose("FileQuit"); })}) {
    QTimer::singleShot(0, QApplication::instance(), end);
    EXPECT_EQ(program.Run(), 0);
  }
}

}  // namespace
}  // namespace peakwright

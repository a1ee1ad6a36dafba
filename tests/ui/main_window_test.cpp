// The main window under its user's keys and clicks.

#include <QAbstractScrollArea>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QScrollBar>
#include <gtest/gtest.h>

#include "engine/run.h"
#include "tests/support/listing_58.h"
#include "tests/support/plain_controls.h"
#include "tests/support/program.h"
#include "update/update_window.h"

namespace peakwright {
namespace {

class MainWindow : public ProgramTest {};

TEST_F(MainWindow, ListsAMassTypedAndReturned) {
  EXPECT_EQ(start_.substr(0, 26), "  Version 1.70 December 28");
  QTest::keyClicks(ToolkitSide::Of(main_.textfield1), QStringLiteral("58.9"));
  Program::Key(main_.textfield1, Qt::Key_Return);
  EXPECT_EQ(main_.textfield1.Text(), "58");
  EXPECT_EQ(program_.Results(), start_ + kListing58);
  PlainControls expected;
  expected.results = start_ + kListing58;
  for (const char* mass : {"benzene", "700"}) {
    Program::Type(main_.textfield1, mass);
    Program::Key(main_.textfield1, Qt::Key_Enter);
    expected.mass = mass;
    Module1::calculate(expected);
    EXPECT_EQ(main_.textfield1.Text(), expected.mass);
    EXPECT_EQ(program_.Results(), expected.results);
  }
}

TEST_F(MainWindow, ReturnRunsAndEscapeClearsFromEveryControl) {
  Program::Type(main_.textfield1, "58");
  for (const DesktopUIControl* control :
       Controls{&main_.textfield1, &main_.Pushbutton1, &main_.checkbox1, &main_.CheckBox2,
                &main_.PushButton2, &main_.PushButton3, &main_.textfield2}) {
    Program::Key(*control, Qt::Key_Escape);
    EXPECT_EQ(program_.Results(), "");
    Program::Key(*control, Qt::Key_Return);
    EXPECT_EQ(program_.Results(), control == &main_.textfield2 ? "\r" : kListing58);
  }
  EXPECT_EQ(main_.textfield1.Text(), "58");
}

TEST_F(MainWindow, TabFollowsTheOrderOfEachWindowOutOfTheResultsToo) {
  Program::Choose("FileElementdata");
  Window2::Instance().Edit(0);
  const Window1& counts = Window1::Instance();
  const Window2& editor = Window2::Instance();
  Controls ofCounts{&counts.PushButton1,   &counts.PushButton2, &counts.PushButton3,
                    &counts.textfield1(7), &counts.PopupMenu1,  &counts.textfield1(8),
                    &counts.PushButton4};
  Controls ofEditor{&editor.PushButton1, &editor.PushButton2, &editor.PushButton3};
  for (int i = 6; i >= 0; --i) ofCounts.insert(ofCounts.begin(), &counts.textfield1(i));
  for (int i = 5; i >= 0; --i) ofEditor.insert(ofEditor.begin(), &editor.textfield1(i));
  for (const Controls& order :
       {Controls{&main_.textfield1, &main_.Pushbutton1, &main_.checkbox1, &main_.textfield2,
                 &main_.CheckBox2, &main_.PushButton2, &main_.PushButton3},
        ofCounts, ofEditor,
        Controls{&Window3::Instance().ListBox1, &Window3::Instance().PushButton1}}) {
    Program::Focus(*order.back());
    for (const DesktopUIControl* next : order) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      EXPECT_EQ(QApplication::focusWidget(), ToolkitSide::Of(*next));
    }
  }
}

TEST_F(MainWindow, MenusHaveALetterForEachItemAndTellTheKeysOfTheEditing) {
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

/// The items of the Edit menu that are enabled when it opens with the focus in a control.
std::string Offered(const DesktopUIControl& control) {
  Program::Focus(control);
  QMenu& edit = ToolkitSide::MenuOf(*Menu::Instance().Child("Edit"));
  edit.popup({});
  std::string offered;
  for (const QAction* item : edit.actions()) {
    if (item->isEnabled()) offered += item->text().remove('&').toStdString() + " ";
  }
  edit.close();
  Program::Focus(control);
  return offered;
}

TEST_F(MainWindow, EditsByTheMenu) {
  Program::Choose("FileClear");
  QApplication::clipboard()->clear();
  for (const DesktopUIControl* control : Controls{&main_.textfield1, &main_.textfield2}) {
    const auto text = [&] {
      return control == &main_.textfield1 ? main_.textfield1.Text() : program_.Results();
    };
    Program::Type(*control, "ab");
    EXPECT_EQ(Offered(*control), "Undo ");
    Program::Key(*control, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Offered(*control), "Undo Cut Copy ");
    Program::Choose("EditCopy");
    EXPECT_EQ(text(), "ab");
    Program::Choose("EditCut");
    EXPECT_EQ(text(), "");
    EXPECT_EQ(Offered(*control), "Undo Paste ");
    for (const char* command : {"EditPaste", "EditPaste"}) Program::Choose(command);
    EXPECT_EQ(text(), "abab");
    for (const char* before : {"ab", "", "ab", control == &main_.textfield1 ? "100" : ""}) {
      Program::Choose("EditUndo");
      EXPECT_EQ(text(), before);
    }
    QTest::keySequence(ToolkitSide::Of(*control), QKeySequence::Redo);
    EXPECT_EQ(text(), "ab");
    QApplication::clipboard()->clear();
  }
  EXPECT_EQ(Offered(main_.Pushbutton1), "Undo ") << "of the results";
}

TEST_F(MainWindow, BoxAndMenuItemAreOne) {
  for (const bool on : {true, false}) {
    Program::Choose("FileClear");
    on ? Program::Click(main_.checkbox1) : Program::Choose("FileApplynitrogenrule");
    EXPECT_EQ(Program::Marked("FileApplynitrogenrule"), on);
    EXPECT_EQ(main_.checkbox1.Value(), on);
    const std::string listed = program_.Results();
    EXPECT_TRUE(listed.starts_with(on ? "Nitrogen rule applied:\r" : "    MASS   100"));
    main_.checkbox1.Value(on);
    EXPECT_EQ(program_.Results(), listed) << "no change, no run";
  }
}

TEST_F(MainWindow, WritesAtTheInsertionPointAndScrollsBelowTheOldEnd) {
  Program::Choose("FileClear");
  Program::Type(main_.textfield2, "ab");
  QTest::keyClick(ToolkitSide::Of(main_.textfield2), Qt::Key_Left, Qt::ShiftModifier);
  Program::Type(main_.textfield1, "58");
  Program::Choose("FileRun");
  EXPECT_EQ(program_.Results(), "a" + kListing58);
  main_.CheckBox2.Value(true);
  ToolkitSide::Of(main_)->showMinimized();
  Window1& panel = Window1::Instance();
  using Case = std::pair<std::function<void()>, std::int64_t>;
  for (const auto& [command, step] : {Case{[&] { Program::Click(panel.PushButton3); }, 20},
                                      Case{[] { Program::Choose("FileRun"); }, 20},
                                      Case{[] { Program::Choose("FileMoreinfo"); }, 10},
                                      Case{[] { Program::Choose("FileAbout"); }, 10}}) {
    main_.textfield1.Text("200");
    const std::int64_t end = main_.textfield2.LineNumber(main_.textfield2.TextLength());
    command();
    EXPECT_FALSE(ToolkitSide::Of(main_)->isMinimized());
    const int last = static_cast<QAbstractScrollArea*>(ToolkitSide::Of(main_.textfield2))
                         ->verticalScrollBar()
                         ->maximum();
    EXPECT_EQ(main_.textfield2.VerticalScrollPosition(), std::min<std::int64_t>(end + step, last));
  }
}

TEST_F(MainWindow, TakesItsKeysFromEveryWindow) {
  Program::Choose("FileElementdata");
  Window2::Instance().Edit(0);
  int checks = 0;
  main_.CheckForUpdates = [&] { ++checks; };
  main_.textfield1.Text("58");
  for (const DesktopUIControl* control :
       Controls{&main_.textfield1, &main_.Pushbutton1, &main_.textfield2,
                &Window1::Instance().textfield1(0), &Window2::Instance().textfield1(0),
                &Window3::Instance().ListBox1}) {
    QWidget& from = *ToolkitSide::Of(*control);
    const std::string before = program_.Results();
    Program::Choose("FileClear");
    Program::Key(*control, Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(program_.Results(), kListing58);
    for (const std::string& undone : {std::string(), before}) {
      QTest::keySequence(&from, QKeySequence::Undo);
      EXPECT_EQ(program_.Results(), undone);
    }
    for (const std::string& redone : {std::string(), kListing58}) {
      QTest::keySequence(&from, QKeySequence::Redo);
      EXPECT_EQ(program_.Results(), redone);
    }
    Program::Key(*control, Qt::Key_U, Qt::ControlModifier);
    QTest::keyClick(&from, Qt::Key_J, Qt::AltModifier);
    QTest::keyClick(&from, Qt::Key_J, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_FALSE(from.property("text").toString().contains('j', Qt::CaseInsensitive));
    QTest::keyClick(&from, Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_EQ(QApplication::activePopupWidget(), nullptr) << "which asks for a context menu";
    QTest::keyClick(&from, Qt::Key_F10);
    ASSERT_EQ(QApplication::activePopupWidget(),
              &ToolkitSide::MenuOf(*Menu::Instance().Child("File")));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(ToolkitSide::Of(Menu::Instance())->activeAction(), nullptr);
    EXPECT_EQ(from.window()->focusWidget(), &from);
    EXPECT_FALSE(ToolkitSide::Of(main_)->focusWidget()->inherits("QMenuBar"));
    EXPECT_EQ(program_.Results(), kListing58);
  }
  EXPECT_EQ(checks, 6);
  QDialog dialog(ToolkitSide::Of(main_));
  dialog.open();
  for (const QKeySequence& keys : {QKeySequence(Qt::Key_F10), QKeySequence(QKeySequence::Undo)}) {
    QTest::keySequence(&dialog, keys);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(program_.Results(), kListing58) << "a dialog keeps its keys";
  }
}

TEST_F(MainWindow, TakesTheNextMassAfterAnyClick) {
  main_.CheckBox2.Value(true);
  Window1& panel = Window1::Instance();
  QWidgetList clicked{ToolkitSide::ContentOf(main_)};
  for (const DesktopUIControl* control :
       Controls{&main_.Pushbutton1, &main_.PushButton2, &main_.PushButton3, &main_.checkbox1,
                &main_.MassText, &panel.PushButton3, &panel.PushButton1}) {
    clicked << ToolkitSide::Of(*control);
  }
  for (QWidget* widget : clicked) {
    Program::Focus(main_.textfield2);
    widget->window()->activateWindow();
    QTest::mouseClick(widget, Qt::LeftButton, {}, {8, widget->height() / 2});
    Program::Choose("FileClear");
    QTest::keyClicks(ToolkitSide::Of(main_)->focusWidget(), QStringLiteral("58"));
    QTest::keyClick(ToolkitSide::Of(main_)->focusWidget(), Qt::Key_Return);
    EXPECT_NE(program_.Results().find(kListing58.substr(0, 40)), std::string::npos);
  }
}

TEST_F(MainWindow, LeavingAMenuLeavesTheFieldAsItWas) {
  main_.CheckBox2.Value(true);
  Window2::Instance().Edit(0);
  Program::Choose("FileUpdate");
  QApplication::processEvents();
  for (const DesktopUIControl* control :
       Controls{&main_.textfield1, &Window1::Instance().textfield1(2),
                &Window2::Instance().textfield1(4), &WindowDownload::Instance().EditField1}) {
    auto& field = static_cast<QLineEdit&>(*ToolkitSide::Of(*control));
    for (const auto& [from, length] : {std::pair(0, 3), std::pair(1, -1), std::pair(1, 0)}) {
      field.setText("100");
      Program::Focus(*control);
      field.setSelection(from, length);
      const auto typing = [&] {
        return std::tuple(QApplication::focusWidget(), field.text(), field.selectedText(),
                          field.cursorPosition());
      };
      const auto before = typing();
      ASSERT_EQ(QApplication::focusWidget(), &field);
      for (const auto& [opening, leaving] :
           {std::pair("F10", Qt::Key_Escape), std::pair("Alt+F", Qt::Key_Escape),
            std::pair("Alt+F", Qt::Key_M), std::pair("Alt+E", Qt::Key_Escape)}) {
        QTest::keySequence(field.window()->windowHandle(), QKeySequence(QString(opening)));
        ASSERT_NE(QApplication::activePopupWidget(), nullptr) << opening;
        QTest::keyClick(QApplication::activePopupWidget(), leaving);
        QApplication::processEvents();
        EXPECT_TRUE(typing() == before) << opening << ' ' << leaving;
      }
    }
  }
}

TEST_F(MainWindow, ResizesTheResultsOnARealChangeOnly) {
  QApplication::processEvents();
  const QSize frame = ToolkitSide::Of(main_)->size() - ToolkitSide::ContentOf(main_)->size();
  for (const auto& [window, results] :
       {std::pair(QSize(600, 700), QSize(575, 640)), std::pair(QSize(64, 64), QSize(39, 4)),
        std::pair(QSize(500, 650), QSize(475, 590))}) {
    ToolkitSide::Of(main_)->resize(window + frame);
    QApplication::processEvents();
    EXPECT_EQ(ToolkitSide::Of(main_.textfield2)->geometry(), QRect(QPoint(8, 48), results));
  }
  Program::Choose("FileClear");
  Program::Choose("FileRun");
  EXPECT_EQ(main_.textfield2.LineNumber(main_.textfield2.TextLength()), 2 + 28 + 2)
      << "no row of a listing wraps";
  EXPECT_EQ(ToolkitSide::Of(main_.textfield2)->font().pixelSize(), 16);
}

TEST_F(MainWindow, EndsOnItsDisplayAndTheResultsGiveWay) {
  const QRect display = QApplication::primaryScreen()->availableGeometry();
  EXPECT_EQ(ToolkitSide::Of(main_)->pos(), display.topLeft() + QPoint(60, 20));
  EXPECT_LE(ToolkitSide::Of(main_)->frameGeometry().bottom(), display.bottom());
  constexpr auto kButtons = Qt::WindowCloseButtonHint | Qt::WindowMinMaxButtonsHint;
  EXPECT_EQ(ToolkitSide::Of(main_)->windowFlags() & kButtons, kButtons);
  EXPECT_EQ(main_.Height() < 650, display.height() < 700) << main_.Height();
  EXPECT_EQ(ToolkitSide::Of(main_.textfield2)->geometry(), QRect(8, 48, 492, main_.Height() - 50));
}

}  // namespace
}  // namespace peakwright

// The results area under its user's keys and clicks.

#include <algorithm>
#include <string>

#include <QAccessible>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBlock>
#include <QTimer>
#include <gtest/gtest.h>

#include "tests/support/listing_58.h"
#include "tests/support/program.h"

namespace peakwright {
namespace {

/// The program with a listing in its results.
struct Listed : Program {
  explicit Listed(const char* mass) {
    Choose("FileClear");
    Type(Main().textfield1, mass);
    Key(Main().textfield1, Qt::Key_Return);
  }

  void Press(Qt::Key key, Qt::KeyboardModifiers with = {}) const {
    Key(Main().textfield2, key, with);
  }
  /// Where the first such text is seen.
  QPoint PointOf(const char* text) const {
    QTextCursor found = Area.document()->find(QString::fromLatin1(text));
    found.setPosition(found.selectionStart() + 1);
    return Area.cursorRect(found).center();
  }
  std::string Selected() const {
    return Area.textCursor().selectedText().replace(QChar::LineSeparator, u'\n').toStdString();
  }
  /// The displayed line of the insertion point.
  int Line() const {
    return static_cast<int>(Main().textfield2.LineNumber(Area.textCursor().position()));
  }
  int LastLine() const { return Area.document()->lineCount() - 1; }
  bool SeesInsertionPoint() const { return Seen.rect().contains(Area.cursorRect()); }

  QPlainTextEdit& Area = *static_cast<QPlainTextEdit*>(ToolkitSide::Of(Main().textfield2));
  QWidget& Seen = *Area.viewport();
  QScrollBar& Scroll = *Area.verticalScrollBar();
};

TEST(Results, ClicksTakeRowsAndWhatStandsBetweenBlanks) {
  const Listed program("58");
  program.Scroll.setValue(0);
  const std::string third = "   3)  58.0405  1  4  3      2.28    .02  1.5\n";
  const std::string fourth = "   4)  58.0167  1  2  2  1   1.92    .01  2.0\n";
  const QPoint number = program.PointOf("58.0405");
  const QPoint above = program.PointOf("58.0279");
  const QPoint below = program.PointOf("58.0167");
  const auto dragTo = [&](QPoint to) {
    QTest::mouseMove(&program.Seen, to);
    return program.Selected();
  };
  QTest::mouseClick(&program.Seen, Qt::LeftButton, {}, number);
  QTest::mouseDClick(&program.Seen, Qt::LeftButton, {}, number);
  EXPECT_EQ(program.Selected(), "58.0405");
  EXPECT_EQ(dragTo(number + QPoint(2, 0)), "58.0405");
  EXPECT_EQ(dragTo(below), third.substr(7) + "   4)  58.0167");
  EXPECT_EQ(dragTo(above).substr(0, 8), "58.0279 ");
  EXPECT_EQ(dragTo(above).substr(2 * third.size() - 7), "   3)  58.0405");
  QTest::mouseRelease(&program.Seen, Qt::LeftButton, {}, number);

  QTest::mouseDClick(&program.Seen, Qt::LeftButton, {}, number);
  QTest::mouseRelease(&program.Seen, Qt::LeftButton, {}, number);
  QTest::mousePress(&program.Seen, Qt::LeftButton, {}, number);
  EXPECT_EQ(program.Selected(), third);
  EXPECT_EQ(dragTo(number + QPoint(2, 0)), third);
  EXPECT_EQ(dragTo(below), third + fourth);
  QTest::mouseRelease(&program.Seen, Qt::LeftButton, {}, below);
  QTest::mouseClick(&program.Seen, Qt::LeftButton, Qt::ShiftModifier, above);
  EXPECT_EQ(program.Selected().size(), 3 * third.size());
  QTest::mouseClick(&program.Seen, Qt::LeftButton, {}, program.PointOf("MASS"));
  QTest::mouseClick(&program.Seen, Qt::LeftButton, Qt::ShiftModifier, program.PointOf("RDB"));
  EXPECT_EQ(program.Selected().substr(0, 5), "ASS  ") << "a plain click ends it";
}

TEST(Results, ThreeClicksLeaveALongListingInPlace) {
  const Listed program("700");
  const auto row = static_cast<int>(program.Results().find(" 299)"));
  QAccessible::queryAccessibleInterface(&program.Area)
      ->textInterface()
      ->scrollToSubstring(row, row);
  const QPoint point(150, 200);
  const int line = static_cast<int>(
      program.Main().textfield2.LineNumber(program.Area.cursorForPosition(point).position()));
  QTest::mouseDClick(&program.Seen, Qt::LeftButton, {}, point);
  QTest::mouseClick(&program.Seen, Qt::LeftButton, {}, point);
  EXPECT_EQ(program.Selected().find('\n'), program.Selected().size() - 1);
  EXPECT_EQ(program.Line(), line + 1);
  EXPECT_EQ(program.Scroll.value(), 300);
}

TEST(Results, PageKeysGoOnFromTheRowsInView) {
  const Listed program("700");
  program.Scroll.setValue(300);
  const int page = program.Scroll.pageStep();
  program.Press(Qt::Key_PageUp);
  EXPECT_EQ(program.Scroll.value(), 300 - page);
  EXPECT_EQ(program.Line(), 300 - page);
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Right}) program.Press(key);
  const int column = program.Area.textCursor().positionInBlock();
  program.Press(Qt::Key_PageDown);
  EXPECT_EQ(program.Scroll.value(), 300);
  EXPECT_EQ(program.Line(), 301);
  program.Press(Qt::Key_PageUp);
  EXPECT_EQ(program.Area.textCursor().positionInBlock(), column);
  for (int line = program.Line(); line > 0; line = program.Line()) {
    program.Press(Qt::Key_PageUp);
    ASSERT_EQ(program.Line(), std::max(line - page, 0));
    ASSERT_TRUE(program.SeesInsertionPoint());
  }
  EXPECT_EQ(program.Scroll.value(), 0);
  program.Press(Qt::Key_PageDown, Qt::ShiftModifier);
  EXPECT_GT(program.Selected().size(), 20U * 47);
  for (int right = 0; right < 3; ++right) program.Press(Qt::Key_Right);
  const int third = program.Area.textCursor().columnNumber();
  for (int line = program.Line(); line < program.LastLine(); line = program.Line()) {
    program.Press(Qt::Key_PageDown);
    ASSERT_EQ(program.Line(), std::min(line + page, program.LastLine()));
    ASSERT_TRUE(program.SeesInsertionPoint());
  }
  program.Press(Qt::Key_PageUp);
  EXPECT_EQ(program.Area.textCursor().columnNumber(), third) << "past an empty line";
}

TEST(Results, PageKeysInAFieldLeaveTheInsertionPoint) {
  const Listed program("400");
  program.Main().CheckBox2.Value(true);
  const std::string listing = program.Results();
  for (const DesktopUIControl* field :
       Controls{&program.Main().textfield1, &program.Main().Pushbutton1,
                &Window1::Instance().textfield1(0)}) {
    program.Scroll.setValue(100);
    Program::Key(*field, Qt::Key_PageDown);
    EXPECT_EQ(program.Scroll.value(), 100 + program.Scroll.pageStep());
    Program::Key(*field, Qt::Key_PageUp);
    Program::Key(*field, Qt::Key_PageUp);
    EXPECT_EQ(program.Scroll.value(), 100 - program.Scroll.pageStep());
    EXPECT_EQ(QApplication::focusWidget(), ToolkitSide::Of(*field));
  }
  Program::Key(program.Main().textfield1, Qt::Key_Return);
  EXPECT_EQ(program.Results(), listing + listing);
}

TEST(Results, ShowsKeysAndLettersInItsMenu) {
  const Listed program("58");
  program.Area.selectAll();
  QApplication::clipboard()->setText("copied");
  const QString redo = QKeySequence(QKeySequence::Redo).toString();
  const QStringList items = ("&Undo\tCtrl+Z|&Redo\t" + redo +
                             "||Cu&t\tCtrl+X|&Copy\tCtrl+C|"
                             "&Paste\tCtrl+V|Delete\tDel||Select All\tCtrl+A")
                                .split('|');
  const auto choose = [&](int item, const QByteArray& enabled) {
    QTimer::singleShot(0, &program.Area, [&, item] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      for (int i = 0; i < items.size(); ++i) {
        EXPECT_EQ(menu->actions()[i]->text(), items[i]);
        EXPECT_EQ(menu->actions()[i]->isEnabled(), enabled[i] != '-') << enabled.data() << i;
      }
      menu->setActiveAction(menu->actions()[item]);
      QTest::keyClick(menu, Qt::Key_Return);
    });
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&program.Area, &asked);
  };
  choose(6, "U- tcpd A");
  EXPECT_EQ(program.Results(), "");
  EXPECT_EQ(QApplication::clipboard()->text(), "copied");
  choose(0, "U- --p- A");
  EXPECT_EQ(program.Results(), kListing58);
}

TEST(Results, ShowsItsSelectionWithTheFocusOnly) {
  const Listed program("58");
  const auto picture = [&](const DesktopUIControl& focused) {
    Program::Focus(focused);
    return program.Seen.grab().toImage();
  };
  const QImage plain = picture(program.Main().textfield1);
  program.Area.selectAll();
  program.Scroll.setValue(0);
  EXPECT_EQ(picture(program.Main().textfield1), plain);
  EXPECT_NE(picture(program.Main().textfield2), plain);
}

TEST(Results, HoldsALineOfAMegabyteAndRefusesALongerOneWithoutALoss) {
  const Listed program("58");
  const QString longest(1'500'000, u'7');
  const auto text = [&] { return program.Results(); };
  const auto paste = [&](const QString& pasted) {
    QApplication::clipboard()->setText(pasted);
    program.Press(Qt::Key_V, Qt::ControlModifier);
  };
  program.Press(Qt::Key_A, Qt::ControlModifier);
  paste(longest + u'7');
  EXPECT_EQ(text(), kListing58);
  const std::string sentence = "The results can't hold a line of more than 1,500,000 characters.";
  EXPECT_EQ(program.LastException(), sentence);
  QMimeData dragged;
  dragged.setText(longest + u'7');
  QDragEnterEvent enter({}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
  QApplication::sendEvent(&program.Seen, &enter);
  QDropEvent drop({}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
  QApplication::sendEvent(&program.Seen, &drop);
  EXPECT_EQ(program.Results(), kListing58);
  paste(longest + QStringLiteral("\nab\nc"));
  const std::string full = longest.toStdString() + "\nab\nc";
  ASSERT_EQ(text(), full);
  EXPECT_GT(program.LastLine(), 30'000) << "and all of it is laid out";
  EXPECT_EQ(program.Area.document()->firstBlock().length(), longest.size() + 1) << "alone";

  // What would join the line with the next.
  struct Case {
    int anchor, position;
    Qt::Key key;
    Qt::KeyboardModifiers with;
  };
  const auto end = static_cast<int>(longest.size());
  for (const Case& act : {Case{end, end, Qt::Key_Delete, {}},
                          {end + 1, end + 1, Qt::Key_Backspace, {}},
                          {end, end + 2, Qt::Key_X, Qt::ControlModifier},
                          {end, end + 2, Qt::Key_Delete, {}},
                          {end - 1, end + 2, Qt::Key_A, {}},
                          {1, 1, Qt::Key_A, {}}}) {
    QTextCursor cursor = program.Area.textCursor();
    cursor.setPosition(act.anchor);
    cursor.setPosition(act.position, QTextCursor::KeepAnchor);
    program.Area.setTextCursor(cursor);
    program.Press(act.key, act.with);
    EXPECT_EQ(text(), full) << act.anchor << ' ' << act.key;
  }
  const QSignalSpy drawn(program.Area.document()->documentLayout(),
                         &QAbstractTextDocumentLayout::update);
  program.Press(Qt::Key_Delete);
  EXPECT_FALSE(drawn.isEmpty());
  EXPECT_EQ(text(), full.substr(0, 1) + full.substr(2));
  program.Press(Qt::Key_Z, Qt::ControlModifier);
  program.Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(text(), kListing58);
}

}  // namespace
}  // namespace peakwright

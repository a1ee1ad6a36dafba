// The three element windows under their user's keys and clicks.

#include <functional>
#include <vector>

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QScreen>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include "tests/support/program.h"

namespace peakwright {
namespace {

void ChooseRow(int row) {
  auto& box = static_cast<QComboBox&>(*ToolkitSide::Of(Window1::Instance().PopupMenu1));
  box.showPopup();
  box.view()->setCurrentIndex(box.model()->index(row, 0));
  QTest::keyClick(box.view(), Qt::Key_Return);
  QApplication::processEvents();
}

/// Opens the popup by a key, which chooses nothing by itself, and closes it again.
void OpenBy(Qt::Key key, const std::string& row) {
  auto& box = static_cast<QComboBox&>(*ToolkitSide::Of(Window1::Instance().PopupMenu1));
  const int before = box.currentIndex();
  QTest::keyClick(&box, key);
  EXPECT_TRUE(box.view()->isVisible());
  EXPECT_EQ(box.view()->currentIndex().data().toString().toStdString(), row);
  EXPECT_EQ(box.currentIndex(), before);
  QTest::keyClick(box.view(), Qt::Key_Escape);
}

void TurnWheelOnPopup() {
  QWheelEvent down({5, 5}, {5, 5}, {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(ToolkitSide::Of(Window1::Instance().PopupMenu1), &down);
}

void DoubleClickRow(int row) {
  auto& list = static_cast<QAbstractItemView&>(*ToolkitSide::Of(Window3::Instance().ListBox1));
  const QModelIndex cell = list.model()->index(row, 1);
  list.scrollTo(cell);
  const QPoint at = list.visualRect(cell).center();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
}

/// What assistive tools call a control.
std::string NameOf(const DesktopUIControl& control) {
  return QAccessible::queryAccessibleInterface(ToolkitSide::Of(control))
      ->text(QAccessible::Name)
      .toStdString();
}

std::string Cell(int row, int column) {
  return Window3::Instance().ListBox1.CellTextAt(row, column);
}

// What can be seen of the windows: which are shown, 1 to 3, then + for the box "Additional
// elements", * for the menu mark of the isotopes, the popup's row, the editor's and the list's.
std::string State(const TextWindow& main) {
  std::string state;
  if (Program::Shown(Window1::Instance())) state += '1';
  if (Program::Shown(Window2::Instance())) state += '2';
  if (Program::Shown(Window3::Instance())) state += '3';
  if (main.CheckBox2.Value()) state += '+';
  if (Program::Marked("FileElementdata")) state += '*';
  return state + " " + std::to_string(Window1::Instance().PopupMenu1.SelectedRowIndex()) + " " +
         Window2::Instance().textfield2.Text() + " " +
         std::to_string(Window3::Instance().ListBox1.SelectedRowIndex());
}

class ElementEditors : public ProgramTest {
 protected:
  ElementEditors() {
    counts_.Hide();
    editor_.Hide();
  }

  Window1& counts_ = Window1::Instance();
  Window2& editor_ = Window2::Instance();
  Window3& isotopes_ = Window3::Instance();
};

TEST_F(ElementEditors, GoThroughTheirStates) {
  struct Step {
    const char* what;
    std::function<void()> act;
    const char* state;
  };
  const auto click = [](const DesktopUIControl& control) {
    return [&] { Program::Click(control); };
  };
  const auto key = [this](Qt::Key pressed, Qt::KeyboardModifiers with = {}) {
    return [=, this] { Program::Key(isotopes_.ListBox1, pressed, with); };
  };
  const auto altF4 = [](DesktopWindow& window) {
    return [&] { ToolkitSide::Of(window)->close(); };
  };
  for (const Step& step : std::vector<Step>{
           {"box turned on", click(main_.CheckBox2), "1+ 0  -1"},
           {"caption of Br", click(counts_.Label3(2)), "13+* 0  -1"},
           {"isotopes by the menu", [] { Program::Choose("FileElementdata"); }, "1+ 0  -1"},
           {"isotopes by the button", click(counts_.PushButton4), "13+* 0  -1"},
           {"popup row of C", [] { ChooseRow(1); }, "123+* 1 0 0"},
           {"wheel on the closed popup", TurnWheelOnPopup, "123+* 1 0 0"},
           {"Down on the popup", [] { OpenBy(Qt::Key_Down, "C"); }, "123+* 1 0 0"},
           {"Up on the popup", [] { OpenBy(Qt::Key_Up, "C"); }, "123+* 1 0 0"},
           {"double click on S", [] { DoubleClickRow(10); }, "123+* 11 10 10"},
           {"S on the popup: the next row, round the end", [] { OpenBy(Qt::Key_S, "Si"); },
            "123+* 11 10 10"},
           {"close key on the editor", altF4(editor_), "123+* 11 10 10"},
           {"Cancel", click(editor_.PushButton1), "13+* 0 10 10"},
           {"Return on the selected row", key(Qt::Key_Return), "123+* 11 10 10"},
           {"popup row of Cl", [] { ChooseRow(6); }, "123+* 6 5 5"},
           {"the next row too", key(Qt::Key_Down, Qt::ShiftModifier), "123+* 6 5 6"},
           {"Space on it", key(Qt::Key_Space), "123+* 7 6 6"},
           {"title row of the popup", [] { ChooseRow(0); }, "123+* 0 6 -1"},
           {"Return on no row", key(Qt::Key_Return), "123+* 0 6 -1"},
           {"Down from no row", key(Qt::Key_Down), "123+* 0 6 1"},
           {"Close of the isotopes", click(isotopes_.PushButton1), "12+ 0 6 1"},
           {"isotopes from the editor", click(editor_.PushButton3), "123+* 0 6 1"},
           {"box turned off", [&] { Program::Choose("FileAdditionalelements"); }, "3* 0 6 1"},
           {"double click on Xx", [] { DoubleClickRow(12); }, "23* 13 12 12"},
           {"Change", click(editor_.PushButton2), "13* 0 12 12"},
           {"Close of the counts", click(counts_.PushButton1), "3* 0 12 12"},
       }) {
    step.act();
    QApplication::processEvents();
    EXPECT_EQ(State(main_), step.state) << step.what;
    EXPECT_EQ(Program::Marked("FileAdditionalelements"), main_.CheckBox2.Value());
  }
  EXPECT_EQ(program_.LastException(), "");
}

TEST_F(ElementEditors, MakeSodiumOfXAndListIt) {
  Program::Click(main_.CheckBox2);
  Program::Type(counts_.textfield1(1), "1");
  Program::Type(counts_.textfield1(6), "2");
  Program::Choose("FileElementdata");
  DoubleClickRow(11);
  std::string changed;
  const QAbstractItemModel& list =
      *static_cast<QAbstractItemView&>(*ToolkitSide::Of(isotopes_.ListBox1)).model();
  QObject::connect(&list, &QAbstractItemModel::dataChanged, [&](auto& cell) {
    changed += std::to_string(cell.row()) + '.' + std::to_string(cell.column()) + ' ';
  });
  const char* const sodium[] = {"Na", "23", "22.98977", "1", "0", "0"};
  QApplication::processEvents();
  for (int column = 0; column < 6; ++column) {
    QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(sodium[column]));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(Cell(11, 0), "X") << "the table changes at Change only";
  Program::Click(editor_.PushButton2);
  EXPECT_EQ(changed, "11.0 11.1 11.2 11.3 11.4 11.5 ") << "what the list shows anew";
  EXPECT_EQ(counts_.PopupMenu1.RowCount(), 14);
  Program::Type(counts_.textfield1(7), "1");
  Program::Type(main_.textfield1, "138");
  Program::Choose("FileClear");
  Program::Click(counts_.PushButton3);
  EXPECT_TRUE(program_.Results().starts_with("1 Cl\r2 S\r1 Na\r    MASS    16  C"));
  for (int i = 0; i < 9; ++i) Program::Type(counts_.textfield1(i), "7");
  Program::Click(counts_.Label2);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_8);
  EXPECT_EQ(counts_.textfield1(8).Text(), "8") << "a click selects the field in use";
  Program::Click(counts_.PushButton2);
  for (int i = 0; i < 9; ++i) EXPECT_EQ(counts_.textfield1(i).Text(), "0");
}

TEST_F(ElementEditors, TakeWhateverIsTyped) {
  Program::Click(main_.CheckBox2);
  const std::string longName(10'000, 'm');
  for (const std::string& text :
       {std::string("<b>x</b>"), std::string("A&B"), longName, std::string("a\nb"), std::string(),
        std::string("1e39"), std::string("-100")}) {
    for (const int row : {0, 3, 4, 12}) {
      ChooseRow(row + 1);
      for (int column = 0; column < 6; ++column) editor_.textfield1(column).Text(text);
      Program::Click(editor_.PushButton2);
      for (int column = 0; column < 6; ++column) ASSERT_EQ(Cell(row, column), text);
      ASSERT_EQ(counts_.PopupMenu1.RowTextAt(row + 1), text);
      if (row >= 4) {
        ASSERT_EQ(counts_.Label3(row - 4).Text(), text);
        ASSERT_EQ(NameOf(counts_.textfield1(row - 4)), text);
        const QWidget& label = *ToolkitSide::Of(counts_.Label3(row - 4));
        const QSize typed = label.fontMetrics().size(0, QString::fromStdString(text));
        EXPECT_GE(label.sizeHint().width(), typed.width());
      }
      counts_.textfield1(8).Text(text);
      EXPECT_EQ(ToolkitSide::Of(counts_.textfield1(8))->property("cursorPosition"), 0);
      Program::Click(counts_.PushButton3);
      ASSERT_EQ(counts_.textfield1(8).Text(), text);
      Program::Choose("FileClear");
    }
    EXPECT_EQ(counts_.Label1.Text(), "Elements other than " + text + ", H, N, " + text);
  }
  main_.textfield1.Text(std::string(40'000, '1'));
  EXPECT_EQ(main_.textfield1.Text().size(), 40'000U);
}

TEST_F(ElementEditors, ChangeNothingWithoutARow) {
  for (const char* row : {"99", "-1", "13", "1e300", "-1e300", "2147483647", "4294967296"}) {
    editor_.Edit(12);
    editor_.textfield1(0).Text("?");
    editor_.textfield2.Text(row);
    Program::Click(editor_.PushButton2);
    EXPECT_FALSE(Program::Shown(editor_)) << row;
    std::string names;
    for (int i = 0; i < 13; ++i) names += Cell(i, 0) + counts_.PopupMenu1.RowTextAt(i + 1);
    EXPECT_EQ(names, "CCHHNNOOFFClClBrBrIISiSiPPSSXXXxXx") << row;
  }
}

TEST_F(ElementEditors, GoBackToTheWindowThatTheyWereOpenedFrom) {
  Program::Choose("FileElementdata");
  Program::Click(main_.CheckBox2);
  const auto inFront = [] {
    QApplication::processEvents();
    return QApplication::activeWindow();
  };
  for (const bool fromIsotopes : {false, true}) {
    const auto open = [&] {
      Program::Focus(counts_.textfield1(3));
      if (fromIsotopes) Program::Focus(isotopes_.ListBox1);
      fromIsotopes ? DoubleClickRow(4) : ChooseRow(5);
      EXPECT_EQ(inFront(), ToolkitSide::Of(editor_));
    };
    open();
    Program::Click(editor_.PushButton3);
    Program::Key(editor_.PushButton1, Qt::Key_Space);
    EXPECT_EQ(inFront(), fromIsotopes ? ToolkitSide::Of(isotopes_) : ToolkitSide::Of(counts_));
    open();
    Program::Click(editor_.PushButton2);
    EXPECT_EQ(inFront(), ToolkitSide::Of(counts_));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_7);
    EXPECT_EQ(counts_.textfield1(0).Text(), "7");
  }
  Program::Focus(isotopes_.ListBox1);
  DoubleClickRow(4);
  Program::Focus(isotopes_.ListBox1);
  Program::Focus(counts_.textfield1(0));
  isotopes_.Hide();
  EXPECT_EQ(inFront(), ToolkitSide::Of(counts_));
  Program::Key(editor_.PushButton1, Qt::Key_Return);
  EXPECT_EQ(inFront(), ToolkitSide::Of(main_));
}

TEST(Panels, PlaceThemselvesOnceBesideTheMainWindow) {
  for (const int left : {40, 700}) {
    Program program;
    TextWindow& main = program.Main();
    main.Left(left);
    main.Top(30);
    Program::Choose("FileElementdata");
    Program::Click(main.CheckBox2);
    ChooseRow(1);
    const int screen = QApplication::primaryScreen()->geometry().width();
    Window1& counts = Window1::Instance();
    EXPECT_EQ(counts.Left(), std::min(main.Left() + 500 + 5, screen - 225));
    EXPECT_EQ(counts.Top(), main.Top());
    EXPECT_EQ(Window2::Instance().Left(), std::min(counts.Left() + 225 + 5, screen - 225));
    EXPECT_EQ(Window3::Instance().Left(), std::min(main.Left() + 500 + 5, screen - 478));
    EXPECT_EQ(Window3::Instance().Top(), 400);
    const int stood = counts.Left();
    main.Left(left + 25);
    Program::Click(main.CheckBox2);
    Program::Click(main.CheckBox2);
    EXPECT_EQ(counts.Left(), stood);
  }
}

}  // namespace
}  // namespace peakwright

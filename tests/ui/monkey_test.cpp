// Presses what is on screen at random: 300 times, or as often as PEAKWRIGHT_MONKEY_PRESSES says.

#include <iostream>
#include <random>

#include <QClipboard>
#include <QLineEdit>
#include <gtest/gtest.h>

#include "tests/support/program.h"

namespace peakwright {
namespace {

// None that quits, prints or asks the update server.
const std::vector<const char*> kCommands{
    "FileRun",  "FileClear", "FileApplynitrogenrule", "FileAdditionalelements", "FileAbout",
    "EditUndo", "EditCut",   "FileElementdata",       "FileMoreinfo",           "EditCopy",
    "EditPaste"};
const std::vector<Qt::Key> kKeys{
    Qt::Key_Tab,   Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space, Qt::Key_Backspace, Qt::Key_Up,
    Qt::Key_Down,  Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Home,  Qt::Key_Delete,    Qt::Key_End,
    Qt::Key_Enter, Qt::Key_PageUp, Qt::Key_A,      Qt::Key_C,     Qt::Key_V,         Qt::Key_Z};
const std::vector<const char*> kTexts{"58", "1", "-7", "2.9", "1e39",  "0.5", "&H1F",   "Na",
                                      " ",  "X", "##", "nan", "<b>&?", "1 2", "%(M+1)", "e-9"};

struct Monkey {
  QWidget& main;
  std::mt19937 random;

  void Press() {
    QWidget& target = *Any(OnScreen());
    const QPoint at(Below(target.width() + 1), Below(target.height() + 1));
    if (Below(2) == 0) target.setFocus();
    const int way = Below(32);
    if (way < 12) QTest::mouseClick(&target, Qt::LeftButton, {}, at);
    if (way < 3) QTest::mouseDClick(&target, Qt::LeftButton, {}, at);
    if (way >= 12 && way < 20)
      QTest::keyClick(&target, Any(kKeys), Below(2) == 0 ? Qt::NoModifier : Qt::ControlModifier);
    if (way >= 20 && way < 26) QTest::keyClicks(&target, QString::fromUtf8(Any(kTexts)));
    if (way >= 26 && way < 30) Program::Choose(Any(kCommands));
    if (way == 30) main.resize(Below(900), Below(900));
    if (way == 31 && target.window() != &main) target.window()->close();
    QApplication::processEvents();
  }

  std::vector<QWidget*> OnScreen() const {
    std::vector<QWidget*> found;
    for (QWidget* widget : main.findChildren<QWidget*>()) {
      const bool inMenu = widget->inherits("QMenuBar") || widget->parent()->inherits("QMenuBar");
      if (widget->isVisible() && !inMenu) found.push_back(widget);
    }
    return found;
  }

  int Below(int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); }

  template <class T>
  T Any(const std::vector<T>& choices) {
    return choices[random() % choices.size()];
  }
};

std::string ListingOf58(TextWindow& main) {
  main.checkbox1.Value(false);
  main.CheckBox2.Value(false);
  main.textfield1.Text("58");
  Program::Choose("FileClear");
  Program::Choose("FileRun");
  return main.textfield2.Text();
}

TEST(Monkey, LeavesTheProgramStanding) {
  const int presses = qEnvironmentVariable("PEAKWRIGHT_MONKEY_PRESSES", "300").toInt();
  constexpr unsigned kSeed = 20211228;
  std::cout << presses << " presses, seed " << kSeed << std::endl;
  Program program;
  TextWindow& main = program.Main();
  const std::string listing = ListingOf58(main);
  const ElementTable table = Window3::Instance().Table();
  // Greater masses and longer results take their time, and show nothing new.
  static_cast<QLineEdit&>(*ToolkitSide::Of(main.textfield1)).setMaxLength(3);
  QApplication::clipboard()->setText(QStringLiteral("C₆H₆\r\n\t∑🧪"));

  Monkey monkey{*ToolkitSide::Of(main), std::mt19937(kSeed)};
  for (int press = 0; press < presses; ++press) {
    monkey.Press();
    if (main.textfield2.TextLength() > 200'000) Program::Choose("FileClear");
    ASSERT_EQ(program.LastException(), "") << "at press " << press;
  }

  Window2& editor = Window2::Instance();
  for (int row = 0; row < table.RowCount(); ++row) {
    editor.Edit(row);
    for (int c = 0; c < 6; ++c) editor.textfield1(c).Text(table.CellTextAt(row, c));
    Program::Click(editor.PushButton2);
  }
  EXPECT_EQ(ListingOf58(main), listing);
}

}  // namespace
}  // namespace peakwright

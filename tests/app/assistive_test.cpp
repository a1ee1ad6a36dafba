// What assistive tools read and work, asked as the accessibility bus asks for it.

#include <array>

#include <QAbstractButton>
#include <QAccessible>
#include <QDoubleSpinBox>
#include <gtest/gtest.h>

#include "tests/support/patience.h"
#include "tests/support/program.h"
#include "update/update_window.h"

namespace peakwright {
namespace {

/// A text, and how it falls into the pieces that tools are given one after the other.
struct TextCase {
  QStringList words, lines;
  QString Text() const { return lines.join(QString()); }
};

QStringList PiecesOf(const TextCase& text, QAccessible::TextBoundaryType kind) {
  if (kind == QAccessible::WordBoundary) return text.words;
  if (kind == QAccessible::CharBoundary) return text.Text().split(QString()).mid(1);
  return kind == QAccessible::NoBoundary ? QStringList(text.Text()) : text.lines;
}

void CheckPieces(const QAccessibleTextInterface& control, const TextCase& text,
                 QAccessible::TextBoundaryType kind) {
  using Asked = QAccessibleTextInterface;
  constexpr std::array kAsk{&Asked::textBeforeOffset, &Asked::textAtOffset,
                            &Asked::textAfterOffset};
  const QStringList pieces = PiecesOf(text, kind);
  const int length = static_cast<int>(text.Text().size());
  ASSERT_TRUE(pieces.join(QString()) == text.Text() && control.text(0, length) == text.Text());
  const auto startOf = [&](qsizetype piece) {
    return static_cast<int>(pieces.mid(0, piece).join(QString()).size());
  };
  for (int offset = -1; offset <= length + 1; ++offset) {
    SCOPED_TRACE(testing::Message()
                 << text.Text().toStdString() << ' ' << kind << " at " << offset);
    qsizetype at = 0;
    while (at + 1 < pieces.size() && startOf(at + 1) <= offset) ++at;
    for (std::size_t side = 0; side < kAsk.size(); ++side) {
      const qsizetype piece = at + static_cast<qsizetype>(side) - 1;
      const bool isTold = offset >= 0 && offset <= length && piece >= 0 && piece < pieces.size() &&
                          (side < 2 || startOf(piece) < length);
      int start = 0, end = 0;
      EXPECT_EQ((control.*kAsk[side])(offset, kind, &start, &end),
                isTold ? pieces[piece] : QString());
      EXPECT_EQ(start, isTold ? startOf(piece) : -1);
      EXPECT_EQ(end, isTold ? startOf(piece + 1) : -1);
    }
  }
}

void CheckAllPieces(QWidget& control, const TextCase& text) {
  QAccessibleInterface& tool = *QAccessible::queryAccessibleInterface(&control);
  tool.setText(QAccessible::Value, text.Text());
  for (int kind = QAccessible::CharBoundary; kind <= QAccessible::NoBoundary; ++kind) {
    CheckPieces(*tool.textInterface(), text, static_cast<QAccessible::TextBoundaryType>(kind));
  }
}

TEST(Assistive, EveryTextControlTellsWhatStandsBeforeAtAndAfterAnOffset) {
  Program program;
  program.Main().CheckBox2.Value(true);
  Window2::Instance().Edit(0);
  Window2::Instance().textfield2.Visible(true);
  Program::Choose("FileUpdate");
  const TextCase kOfOneLine[] = {
      {{""}, {""}},
      {{"58"}, {"58"}},
      {{"."}, {"."}},
      {{" ", "58", ".", "0783  ", "ab", ", ", "c "}, {" 58.0783  ab, c "}},
  };
  int controls = 0;
  for (QWidget* control : QApplication::allWidgets()) {
    QAccessibleInterface* tool = QAccessible::queryAccessibleInterface(control);
    if (!control->isVisible() || tool == nullptr || tool->textInterface() == nullptr) continue;
    ++controls;
    SCOPED_TRACE(tool->text(QAccessible::Name).toStdString());
    for (const TextCase& text : kOfOneLine) CheckAllPieces(*control, text);
  }
  EXPECT_EQ(controls, 2 + 9 + 7 + 1);
  QDoubleSpinBox margin;  // As in the page setup.
  margin.show();
  CheckAllPieces(margin, {{"12", ".", "50"}, {"12.50"}});
  const auto& value = *QAccessible::queryAccessibleInterface(&margin)->valueInterface();
  EXPECT_EQ(value.minimumStepSize(), margin.singleStep());
  QWidget& results = *ToolkitSide::Of(program.Main().textfield2);
  CheckAllPieces(results, {{"58 ", "a\n", "b\n ", "c\n"}, {"58 a\n", "b\n", " c\n", ""}});
}

QAccessibleInterface& ToolOf(const DesktopUIControl& control) {
  return *QAccessible::queryAccessibleInterface(ToolkitSide::Of(control));
}

/// Presses a button or opens a popup as tools do, shown or not.
void Press(const DesktopUIControl& control) {
  const auto* button = qobject_cast<QAbstractButton*>(ToolkitSide::Of(control));
  ToolOf(control).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_TRUE(WaitFor([&] { return button == nullptr || !button->isDown(); }));
}

TEST(Assistive, WhatIsNotShownTakesNothing) {
  Program program;
  Window1& counts = Window1::Instance();
  Window2& editor = Window2::Instance();
  counts.Hide();
  editor.Hide();
  const std::string carbon = Window3::Instance().ListBox1.CellTextAt(0, 1);
  Press(editor.PushButton2);
  EXPECT_EQ(Window3::Instance().ListBox1.CellTextAt(0, 1), carbon) << "never shown on a row";
  EXPECT_FALSE(Program::Shown(counts));
  Press(counts.PopupMenu1);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  ToolOf(counts.textfield1(0)).setText(QAccessible::Value, QStringLiteral("7"));
  EXPECT_EQ(counts.textfield1(0).Text(), "0");

  editor.Edit(5);
  ToolOf(editor.textfield2).setText(QAccessible::Value, QStringLiteral("99"));
  ToolOf(editor.textfield1(1)).setText(QAccessible::Value, QStringLiteral("36"));
  Press(editor.PushButton2);
  EXPECT_EQ(Window3::Instance().ListBox1.CellTextAt(5, 1), "36");

  Program::Choose("FileUpdate");
  WindowDownload& update = WindowDownload::Instance();
  ASSERT_FALSE(update.PushButton2.Visible());
  EXPECT_EQ(update.Left(), program.Main().Left() + 10);
  Press(update.PushButton2);
  EXPECT_FALSE(update.ProgressBar1.Visible());

  program.Choose("FileClear");
  ToolkitSide::Of(program.Main())->showMinimized();
  Press(program.Main().Pushbutton1);
  EXPECT_NE(program.Results(), "") << "minimised, it is still there";
}

}  // namespace
}  // namespace peakwright

// The results area's control, held against a plain string that is edited alongside.

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>
#include <gtest/gtest.h>

#include "runtime/text/text_area_view.h"

namespace peakwright {
namespace {

std::string Rows(int count, char lineEnd) {
  std::string rows;
  for (int i = 1; i <= count; ++i) {
    rows += QString::asprintf("%4d)%9.4f%3.0d%3.0d%3.0d%3.0d %6.2f %6.2f %4.1f", i % 10000, i / 3.0,
                              i % 7, i % 103, i % 3, i % 2, i / 7.0, i / 90.0, i % 5 / 2.0)
                .toStdString();
    rows += lineEnd;
  }
  return rows;
}

struct ShownView : TextAreaView {
  ShownView() {
    QFont courier(QStringLiteral("Courier"));
    courier.setStyleHint(QFont::Monospace);
    courier.setPixelSize(16);
    setFont(courier);
    resize(492, 600);
    show();
  }

  void Select(int anchor, int position) {
    QTextCursor cursor = textCursor();
    cursor.setPosition(anchor);
    cursor.setPosition(position, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
  }

  /// Holds the number of displayed lines against that of all blocks laid out.
  void CheckLineCount() const {
    const int counted = document()->lineCount();
    int lines = 0;
    for (QTextBlock block = document()->firstBlock(); block.isValid(); block = block.next()) {
      document()->documentLayout()->blockBoundingRect(block);
      lines += block.layout()->lineCount();
    }
    ASSERT_EQ(counted, lines);
  }
};

TEST(TextArea, KeepsEveryLineEndThroughEditing) {
  std::mt19937 random(20211228);
  const auto below = [&](int bound) {
    return static_cast<int>(random() % static_cast<unsigned>(bound));
  };
  constexpr Qt::Key kKeys[] = {Qt::Key_Return, Qt::Key_Delete, Qt::Key_Backspace};
  for (int round = 0; round < 16; ++round) {
    ShownView view;
    if (round % 4 == 0) view.resize(250, 300);
    std::string text;
    for (int step = 0; step < 60; ++step) {
      SCOPED_TRACE(testing::Message() << "round " << round << " step " << step);
      const int length = static_cast<int>(text.size());
      int from = below(length + 1);
      int to = below(3) == 0 ? std::min(length, from + below(9000)) : from;
      view.Select(from, to);
      const int act = below(5);
      if (from == to && act == 1) to = std::min(to + 1, length);
      if (from == to && act == 2) from = std::max(from - 1, 0);
      const std::string typed[] = {
          "\r", "", "", Rows(below(200), '\n') + "\r",
          "a\n\r\n\n\t\t\t\t\t\t\t\tb\r\rc" + std::string(1, "\n\r"[below(2)])};
      text.replace(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from), typed[act]);
      if (act < 3) {
        QTest::keyClick(&view, kKeys[act]);
      } else {
        view.InsertText(typed[act]);
      }
      ASSERT_EQ(view.Text(), text);
      view.CheckLineCount();
      if (below(6) > 0) continue;
      view.Undo();
      view.Redo();
      ASSERT_EQ(view.Text(), text);
    }
    for (const int width : {300, 700}) {
      view.resize(width, 300);
      view.CheckLineCount();
    }
    while (view.CanUndo()) view.Undo();
    EXPECT_EQ(view.Text(), "");
    while (view.CanRedo()) view.Redo();
    EXPECT_EQ(view.Text(), text);
  }
}

TEST(TextArea, CountsAndScrollsByDisplayedLines) {
  ShownView view;
  const std::string paragraph = std::string(300, 'x') + "\r\t\t\t\t\t\t\t\t\tx\n";
  const std::string text = Rows(1000, '\n') + "\r" + paragraph + "\r" + Rows(500, '\r') + "end";
  view.InsertText(text);
  std::vector<int> widths{492, 300, 1200, 90};
  for (int width = 440; width < 520; ++width) widths.push_back(width);
  const QPoint inTopRow(0, view.fontMetrics().height() / 2);
  for (const int width : widths) {
    const int top = view.cursorForPosition(inTopRow).position();
    view.resize(width, 600);
    EXPECT_EQ(view.verticalScrollBar()->value(), view.LineNumber(top)) << width;
    view.CheckLineCount();
    EXPECT_EQ(view.LineNumber(view.TextLength()), view.document()->lineCount() - 1) << width;
    view.verticalScrollBar()->setValue(1 << 30);
    EXPECT_TRUE(view.viewport()->rect().contains(view.cursorRect())) << width;
    view.verticalScrollBar()->setValue(700);
    EXPECT_EQ(view.LineNumber(view.cursorForPosition(inTopRow).position()), 700) << width;
    view.InsertText(" goes on");
    EXPECT_EQ(view.verticalScrollBar()->value(), 700) << width;
  }
  EXPECT_TRUE(view.Text().starts_with(text));
}

TEST(TextArea, TakesClicksAndKeysAsTheUserSeesTheText) {
  ShownView view;
  view.InsertText("x\nab  \none two three\n" + Rows(500, '\n'));
  view.verticalScrollBar()->setValue(0);
  const auto pointOf = [&](int position) {
    QTextCursor there = view.textCursor();
    there.setPosition(position);
    return view.cursorRect(there).center();
  };
  const auto selected = [&] { return view.textCursor().selectedText().toStdString(); };
  QWidget* shown = view.viewport();
  for (const auto& [position, word] : {std::pair{1, "x"}, {5, "  "}, {12, "two"}}) {
    QTest::mouseDClick(shown, Qt::LeftButton, {}, pointOf(position));
    EXPECT_EQ(selected(), word);
  }
  QTest::mouseClick(shown, Qt::RightButton, {}, pointOf(1));
  QTest::mouseClick(shown, Qt::LeftButton, Qt::ShiftModifier, pointOf(17));
  EXPECT_EQ(selected(), "two three");
  QTest::mousePress(shown, Qt::LeftButton, {}, pointOf(17));
  EXPECT_EQ(selected(), "two three") << "may be dragged";
  QTest::mouseRelease(shown, Qt::LeftButton, {}, pointOf(17));
  EXPECT_EQ(selected(), "");

  const int page = view.verticalScrollBar()->pageStep();
  QTest::keyClick(&view, Qt::Key_Home, Qt::ControlModifier);
  for (int down = 0; down < page; ++down) QTest::keyClick(&view, Qt::Key_Down);
  view.verticalScrollBar()->setValue(0);
  QTest::keyClick(&view, Qt::Key_PageDown);
  EXPECT_EQ(view.LineNumber(view.textCursor().position()), page) << "was out of view";

  for (const auto& [key, with] :
       {std::pair{Qt::Key_Return, Qt::NoModifier}, std::pair{Qt::Key_V, Qt::ControlModifier}}) {
    QApplication::clipboard()->setText(QStringLiteral("<b>a</b>\r\nb"));
    view.verticalScrollBar()->setValue(300);
    QTest::keyClick(&view, key, with);
    EXPECT_TRUE(shown->rect().intersects(view.cursorRect()));
  }
  EXPECT_NE(view.Text().find("\r<b>a</b>\nb"), std::string::npos);
  view.selectAll();
  view.copy();
  const QMimeData& copied = *QApplication::clipboard()->mimeData();
  EXPECT_EQ(copied.text(), QString::fromStdString(view.Text()).replace(u'\r', u'\n'));
  EXPECT_EQ(copied.formats(), QStringList("text/plain"));
  QApplication::clipboard()->setImage(QImage(1, 1, QImage::Format_RGB32));
  view.paste();
  EXPECT_NE(view.Text(), "");

  view.verticalScrollBar()->setValue(0);
  QTest::mouseDClick(shown, Qt::LeftButton, {}, pointOf(12));
  EXPECT_EQ(selected(), "two");
  view.ReplaceText("");
  view.InsertText("one two");
  QTest::mouseClick(shown, Qt::LeftButton, Qt::ShiftModifier, pointOf(2));
  EXPECT_EQ(selected(), "e two");
  view.InsertText("x\ufdd0\ufdd1");  // The toolkit keeps them for itself.
  EXPECT_EQ(view.Text(), "onx\ufffd\ufffd");
  view.setFont(QFont(QStringLiteral("Courier"), 30));
  view.Undo();
  view.Undo();
  view.CheckLineCount();
  EXPECT_EQ(view.document()->defaultFont(), view.font());
}

TEST(TextArea, BreaksLongLinesWhereTheToolkitWould) {
  // Words, Chinese, Korean, Arabic, marks, beyond 16 bits, soft hyphens, blanks, tabs.
  for (const char* repeated :
       {"0123456789abc", "Lorem ipsum, dolor-sit a/met. ", "a bc d                    e",
        "\u6f22\u5b57\u3002", "\ud55c\uad6d\uc5b4", "\u0645\u0631\u062d\u0628\u0627",
        "e\u0301\u0301\u0301\u0301\u0301\u0301\u0301\u0301", "a\U0001f600", "abcdefghi\u00ad",
        "    ", "a\tb"}) {
    std::string text = "short ones first, ";
    while (text.size() < 9000) text += repeated;
    text += std::string(3000, 'x') + " " + std::string(3000, 'y');
    for (const int width : {492, 60, 6000}) {
      ShownView view;
      view.InsertText(text + "\rnext");
      view.resize(width, 300);
      QTextLayout whole(view.document()->firstBlock().text(), view.document()->defaultFont());
      whole.setTextOption(view.document()->defaultTextOption());
      const double margin = view.document()->documentMargin();
      double height = 0;
      whole.beginLayout();
      for (QTextLine made = whole.createLine(); made.isValid(); made = whole.createLine()) {
        made.setLeadingIncluded(true);
        made.setLineWidth(view.viewport()->width() - 2 * margin);
        made.setPosition({margin, height});
        height += made.height();
      }
      whole.endLayout();
      const auto shown = [&] {
        view.LineNumber(0);  // lays out
        return view.document()->firstBlock().layout();
      };
      SCOPED_TRACE(testing::Message() << repeated << ' ' << width);
      ASSERT_EQ(shown()->lineCount(), whole.lineCount());
      EXPECT_EQ(view.document()->firstBlock().lineCount(), whole.lineCount());
      for (int i = 0; i < whole.lineCount(); ++i) {
        ASSERT_EQ(shown()->lineAt(i).textStart(), whole.lineAt(i).textStart()) << i;
        ASSERT_EQ(shown()->lineAt(i).rect(), whole.lineAt(i).rect()) << i;
      }
    }
  }
}

TEST(TextArea, UndoAndRedoLoseNoText) {
  struct Step {
    std::string text;  // before it, or after it when it is undone
    bool isClear;
  };
  std::mt19937 random(20211229);
  for (int round = 0; round < 60; ++round) {
    ShownView view;
    std::string text;
    std::vector<Step> undo, redo;
    std::string acts;
    for (int i = 0; i < 40; ++i) {
      const char act = "xxxCCUUURR"[random() % 10];
      acts += act;
      if (act == 'x') {
        undo.push_back({text, false});
        redo.clear();
        text += std::to_string(i);
        view.InsertText(std::to_string(i));
      } else if (act == 'C') {
        if (!text.empty()) {
          // What lies before the last Clear is given up.
          const auto last = std::find_if(undo.rbegin(), undo.rend(),
                                         [](const Step& step) { return step.isClear; });
          undo.erase(undo.begin(), last.base());
          undo.push_back({std::exchange(text, {}), true});
          redo.clear();
        }
        view.ReplaceText("");
      } else {
        std::vector<Step>& from = act == 'U' ? undo : redo;
        if (!from.empty()) {
          (act == 'U' ? redo : undo).push_back({std::move(text), from.back().isClear});
          text = std::move(from.back().text);
          from.pop_back();
        }
        act == 'U' ? view.Undo() : view.Redo();
      }
      ASSERT_EQ(view.Text(), text) << acts;
      ASSERT_EQ(view.CanUndo(), !undo.empty()) << acts;
      ASSERT_EQ(view.CanRedo(), !redo.empty()) << acts;
    }
  }
}

TEST(TextArea, CountsWhatAnInsertionReplacesBeforeItRefuses) {
  ShownView view;
  const auto insertsOnly = [](const auto& insert) { insert("new"); };
  view.InsertText("former");
  EXPECT_THROW(view.InsertText(1'000'000'000, insertsOnly), std::length_error);
  view.InsertText("\nrow\n" + std::string(9, '-'));
  view.Select(0, 0);
  QTest::keyClick(&view, Qt::Key_Down);
  view.InsertText("abc");
  QTest::keyClick(&view, Qt::Key_Up);
  EXPECT_EQ(view.textCursor().position(), 3);
  view.Undo();
  view.Undo();
  EXPECT_THROW(view.ReplaceText(std::string(1'500'001, '7')), std::length_error);
  EXPECT_EQ(view.Text(), "former");
  view.selectAll();
  view.InsertText(1'000'000'000, insertsOnly);
  EXPECT_EQ(view.Text(), "new");
}

TEST(TextArea, LeavesNothingOfAStepThatFails) {
  ShownView view;
  const std::string first = Rows(600, '\n');
  view.InsertText(first);
  view.InsertText(" second");
  view.Undo();
  view.Select(4, 2);
  view.verticalScrollBar()->setValue(100);
  const auto fails = [](const auto& insert) {
    insert(Rows(600, '\n') + "\r");
    throw std::bad_alloc();
  };
  const auto writes = [&] { view.InsertText("one\r"), view.InsertText(0, fails); };
  EXPECT_THROW(view.InsertText(0, fails), std::bad_alloc);
  EXPECT_THROW(view.AsOneStep(writes), std::bad_alloc);
  EXPECT_EQ(view.Text(), first);
  EXPECT_EQ(view.verticalScrollBar()->value(), 100);
  EXPECT_EQ(view.textCursor().anchor(), 4);
  EXPECT_EQ(view.textCursor().position(), 2);
  view.CheckLineCount();
  EXPECT_FALSE(view.CanRedo());
  view.Undo();
  EXPECT_EQ(view.Text(), "");
  EXPECT_FALSE(view.CanUndo());
}

}  // namespace
}  // namespace peakwright

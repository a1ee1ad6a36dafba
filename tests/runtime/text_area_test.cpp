// The results area's control, held against a plain string that is edited alongside.

#include <array>
#include <cstdio>
#include <random>
#include <string>

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QPointer>
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
    std::array<char, 2048> row{};  // as GCC 14 reckons with the longest of Doubles
    std::snprintf(row.data(), row.size(), "%4d)%9.4f%3.0d%3.0d%3.0d%3.0d %6.2f %6.2f %4.1f",
                  i % 10000, i / 3.0, i % 7, i % 103, i % 3, i % 2, i / 7.0, i / 90.0, i % 5 / 2.0);
    rows += row.data();
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

  /// How many lines are displayed, by laying out every block.
  int LinesByLayout() const {
    int lines = 0;
    for (QTextBlock block = document()->firstBlock(); block.isValid(); block = block.next()) {
      document()->documentLayout()->blockBoundingRect(block);
      lines += block.layout()->lineCount();
    }
    return lines;
  }
};

TEST(TextArea, KeepsEveryLineEndThroughEditing) {
  std::mt19937 random(20211228);
  const auto below = [&](int bound) {
    return static_cast<int>(random() % static_cast<unsigned>(bound));
  };
  for (int round = 0; round < 16; ++round) {
    ShownView view;
    if (round % 4 == 0) view.resize(250, 300);
    std::string text;
    for (int step = 0; step < 60; ++step) {
      const int length = static_cast<int>(text.size());
      const int from = below(length + 1);
      const int to = below(3) == 0 ? std::min(length, from + below(9000)) : from;
      const auto at = static_cast<std::size_t>(from);
      const auto cut = static_cast<std::size_t>(to - from);
      view.Select(from, to);
      switch (below(6)) {
        case 0:
          text.replace(at, cut, "\r");
          QTest::keyClick(&view, Qt::Key_Return);
          break;
        case 1:
          if (cut == 0 && from == length) continue;
          text.erase(at, std::max<std::size_t>(cut, 1));
          QTest::keyClick(&view, Qt::Key_Delete);
          break;
        case 2:
          if (cut == 0 && from == 0) continue;
          text.erase(cut == 0 ? at - 1 : at, std::max<std::size_t>(cut, 1));
          QTest::keyClick(&view, Qt::Key_Backspace);
          break;
        case 3: {
          const std::string rows = Rows(below(200), '\n') + "\r";
          text.replace(at, cut, rows);
          view.InsertText(rows);
          break;
        }
        case 4: {
          const std::string mixed = "a\n\r\n\nb\r\rc" + std::string(1, below(2) == 0 ? '\n' : '\r');
          text.replace(at, cut, mixed);
          view.InsertText(mixed);
          break;
        }
        default: {
          if (!view.CanUndo()) continue;
          const std::string shown = view.Text();
          view.Undo();
          view.Redo();
          ASSERT_EQ(view.Text(), shown) << "round " << round << " step " << step;
          continue;
        }
      }
      ASSERT_EQ(view.Text(), text) << "round " << round << " step " << step;
      const int counted = view.document()->lineCount();
      ASSERT_EQ(counted, view.LinesByLayout()) << "round " << round << " step " << step;
    }
    for (const int width : {300, 700}) {
      view.resize(width, 300);
      const int counted = view.document()->lineCount();
      ASSERT_EQ(counted, view.LinesByLayout()) << "round " << round;
    }
    while (view.CanUndo()) view.Undo();
    EXPECT_EQ(view.Text(), "");
    while (view.CanRedo()) view.Redo();
    EXPECT_EQ(view.Text(), text);
  }
}

TEST(TextArea, CountsAndScrollsByDisplayedLines) {
  ShownView view;
  const std::string paragraph(300, 'x');
  const std::string text = Rows(1000, '\n') + "\r" + paragraph + "\r" + Rows(500, '\r') + "end";
  view.InsertText(text);
  for (const int width : {492, 300, 1200, 90, 475}) {
    view.resize(width, 600);
    const int counted = view.document()->lineCount();
    ASSERT_EQ(counted, view.LinesByLayout()) << width;
    EXPECT_EQ(view.LineNumber(view.TextLength()), view.document()->lineCount() - 1) << width;
    view.verticalScrollBar()->setValue(700);
    const QPoint inTopRow(0, view.fontMetrics().height() / 2);
    EXPECT_EQ(view.LineNumber(view.cursorForPosition(inTopRow).position()), 700) << width;
    view.verticalScrollBar()->setValue(1 << 30);
    EXPECT_TRUE(view.viewport()->rect().contains(view.cursorRect())) << width;
  }
  EXPECT_EQ(view.Text(), text);
}

TEST(TextArea, UndoesClearWithoutKeepingEveryFormerText) {
  ShownView view;
  view.InsertText("first");
  const QPointer<QTextDocument> first = view.document();
  view.ReplaceText("");
  view.InsertText("second\r" + Rows(100, '\n'));
  EXPECT_FALSE(first.isNull());
  view.ReplaceText("");
  EXPECT_TRUE(first.isNull()) << "the text before the last one is given up";
  view.Undo();
  EXPECT_EQ(view.Text(), "second\r" + Rows(100, '\n'));
  view.Redo();
  EXPECT_EQ(view.Text(), "");
  view.Undo();
  while (view.CanUndo()) view.Undo();
  EXPECT_EQ(view.Text(), "");
  view.InsertText("new");
  EXPECT_FALSE(view.CanRedo());
}

TEST(TextArea, CountsWhatAnInsertionReplacesBeforeItRefuses) {
  ShownView view;
  const auto insertsOnly = [](const auto& insert) { insert("new"); };
  view.InsertText("former");
  EXPECT_THROW(view.InsertText(1'000'000'000, insertsOnly), std::length_error);
  EXPECT_EQ(view.Text(), "former");
  view.selectAll();
  view.InsertText(1'000'000'000, insertsOnly);
  EXPECT_EQ(view.Text(), "new");
}

TEST(TextArea, LeavesNothingOfAStepThatFails) {
  ShownView view;
  view.InsertText("first");
  view.InsertText(" second");
  view.Undo();
  view.Select(4, 2);
  const auto fails = [](const auto& insert) {
    insert(Rows(600, '\n') + "\r");
    throw std::bad_alloc();
  };
  EXPECT_THROW(view.InsertText(0, fails), std::bad_alloc);
  const auto writes = [&] {
    view.InsertText("one\r");
    view.InsertText(0, fails);
  };
  EXPECT_THROW(view.AsOneStep(writes), std::bad_alloc);
  EXPECT_EQ(view.Text(), "first");
  EXPECT_EQ(view.textCursor().anchor(), 4);
  EXPECT_EQ(view.textCursor().position(), 2);
  EXPECT_EQ(view.document()->lineCount(), 1);
  EXPECT_FALSE(view.CanRedo());
  view.Undo();
  EXPECT_EQ(view.Text(), "");
  EXPECT_FALSE(view.CanUndo());
}

TEST(TextArea, CopiesAndPastesOrdinaryLines) {
  ShownView view;
  view.InsertText("one\ntwo\rthree");
  view.selectAll();
  QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
  const QMimeData* copied = QApplication::clipboard()->mimeData();
  EXPECT_EQ(copied->text(), QStringLiteral("one\ntwo\nthree"));
  EXPECT_EQ(copied->formats(), QStringList(QStringLiteral("text/plain")));
  QApplication::clipboard()->setText(QStringLiteral("<b>a</b>\r\nb"));
  QTest::keyClick(&view, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(view.Text(), "<b>a</b>\nb");
}

}  // namespace
}  // namespace peakwright

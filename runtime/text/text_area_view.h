#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include <QPlainTextEdit>
#include <QTextCursor>

#include "runtime/text_pieces.h"

namespace peakwright {

class LineCountingLayout;

/// The toolkit's plain text control, taught to keep carriage returns and line feeds apart, to know
/// how many lines a long text has without laying it out, to undo a replacement of the whole text
/// without holding it twice, and to select and turn pages by what the user sees: rows, what stands
/// between blanks, and the lines in view.
class TextAreaView : public QPlainTextEdit {
 public:
  TextAreaView();
  ~TextAreaView() override;

  /// The whole text in UTF-8, with each line end as it went in.
  std::string Text() const;
  /// Replaces the whole text. Undo brings the former text back, but none that was replaced before.
  void ReplaceText(std::string_view text);
  /// Replaces the selection, or inserts at the insertion point, and leaves the insertion point
  /// behind the text. Doesn't scroll. Throws std::length_error if the text would grow past what
  /// the toolkit can number, or a line past what it lays out in a moment; nothing is changed then.
  void InsertText(std::string_view text);
  /// Likewise with a text of `length` bytes that comes in pieces. Requires: no long lines.
  void InsertText(std::size_t length, const TextPieces& pieces);
  /// Calls `write`. What is inserted meanwhile is one step of Undo; if `write` throws, text and
  /// steps are again as they were, but nothing is left to redo.
  void AsOneStep(const std::function<void()>& write);

  int TextLength() const { return document()->characterCount() - 1; }
  /// The displayed line, from 0, that holds a position, in UTF-16 units from 0.
  int LineNumber(int position) const;
  /// Where that line starts and the next one does, or where the text ends.
  std::pair<int, int> LineAround(int position) const;
  /// Likewise from line end to line end, however it is wrapped.
  std::pair<int, int> RowAround(int position) const;

  bool CanUndo() const { return document()->isUndoAvailable() || earlier_ != nullptr; }
  bool CanRedo() const { return document()->isRedoAvailable() || later_ != nullptr; }
  void Undo();
  void Redo();
  void Cut();

  /// Raised when the `added` characters behind `from` have come in the place of `removed` ones.
  std::function<void(int from, int removed, int added)> Changed;
  /// Raised when Undo or Redo has changed the text.
  std::function<void(int formerLength)> Restored;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  QMimeData* createMimeDataFromSelection() const override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  using Unit = std::pair<int, int> (TextAreaView::*)(int position) const;

  std::unique_ptr<QTextDocument> NewDocument();
  void Show(std::unique_ptr<QTextDocument> document);
  void TakeBack(int anchor, int position, int top);
  void TellChange(int from, int removed, int added);
  void Recount();
  /// Throws if a line would be too long with `text` in the place of what stands between.
  void RefuseLongLine(int from, int to, std::string_view text) const;
  void DeleteToRowEnd();
  void TurnPage(int direction);
  std::pair<int, int> BetweenBlanks(int position) const;
  /// Selects the unit around a position, with the line `top` at the top of the view.
  void Take(Unit unit, int position, int top);
  void ExtendTaken(int position);
  void ForgetClicks();
  LineCountingLayout& Layout() const;
  QTextLine LaidOutLine(const QTextBlock& block, int position) const;

  Unit unit_ = nullptr;  // What clicks take at a time, or null.
  QTextCursor taken_;    // What they took first.
  bool isInStep_ = false;
  int stepsBefore_ = 0;  // The steps of Undo when the present one began, as the toolkit counts.
  std::unique_ptr<QTextDocument> shown_;
  std::unique_ptr<QTextDocument>
      earlier_;                           // What Undo shows when the shown text has no more steps.
  std::unique_ptr<QTextDocument> later_;  // Likewise for Redo.
};

}  // namespace peakwright

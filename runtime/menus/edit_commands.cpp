#include "runtime/menus/edit_commands.h"

#include <algorithm>
#include <array>
#include <functional>
#include <type_traits>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>

#include "runtime/application/toolkit_side.h"
#include "runtime/text/text_area_view.h"

namespace peakwright {
namespace {

/// Asks or tells the one or the other kind of text control; others answer with nothing.
template <auto kOnField, auto kOnArea>
auto OnTextControl(QWidget& focused) {
  if (auto* field = dynamic_cast<QLineEdit*>(&focused)) return std::invoke(kOnField, *field);
  if (auto* area = dynamic_cast<TextAreaView*>(&focused)) return std::invoke(kOnArea, *area);
  return std::invoke_result_t<decltype(kOnArea), TextAreaView&>();
}

bool AreaHasSelection(const TextAreaView& area) { return area.textCursor().hasSelection(); }
bool ClipboardHasText(const QWidget&) { return !QApplication::clipboard()->text().isEmpty(); }

constexpr auto kHasSelection = OnTextControl<&QLineEdit::hasSelectedText, AreaHasSelection>;
constexpr auto kUndo = OnTextControl<&QLineEdit::undo, &TextAreaView::Undo>;
constexpr auto kRedo = OnTextControl<&QLineEdit::redo, &TextAreaView::Redo>;

const std::array<EditCommand, 5> kCommands{{
    {"EditUndo", OnTextControl<&QLineEdit::isUndoAvailable, &TextAreaView::CanUndo>, kUndo},
    {"EditRedo", OnTextControl<&QLineEdit::isRedoAvailable, &TextAreaView::CanRedo>, kRedo},
    {"EditCut", kHasSelection, OnTextControl<&QLineEdit::cut, &TextAreaView::Cut>},
    {"EditCopy", kHasSelection, OnTextControl<&QLineEdit::copy, &TextAreaView::copy>},
    {"EditPaste", OnTextControl<ClipboardHasText, ClipboardHasText>,
     OnTextControl<&QLineEdit::paste, &TextAreaView::paste>},
}};

/// The document window's text area, or null.
QPlainTextEdit* Results() {
  const QWidget* document = ToolkitSide::DocumentWindow();
  return document == nullptr ? nullptr : document->findChild<QPlainTextEdit*>();
}

/// The control that the command acts on now, or null.
QWidget* Target(const EditCommand& command) {
  QWidget* focused = QApplication::focusWidget();
  if (focused != nullptr && command.canAct(*focused)) return focused;
  const bool reachesResults = command.act == kUndo || command.act == kRedo;
  QWidget* results = reachesResults ? Results() : nullptr;
  return results != nullptr && command.canAct(*results) ? results : nullptr;
}

}  // namespace

const EditCommand* FindEditCommand(std::string_view menuItem) {
  const auto* const found =
      std::find_if(kCommands.begin(), kCommands.end(),
                   [&](const EditCommand& command) { return command.menuItem == menuItem; });
  return found == kCommands.end() ? nullptr : found;
}

const EditCommand* FindEditCommand(const QKeyEvent& event) {
  if (event.matches(QKeySequence::Undo)) return FindEditCommand("EditUndo");
  if (event.matches(QKeySequence::Redo)) return FindEditCommand("EditRedo");
  return nullptr;
}

bool TurnResults(const QKeyEvent& event) {
  const bool isUp = event.matches(QKeySequence::MoveToPreviousPage);
  if (!isUp && !event.matches(QKeySequence::MoveToNextPage)) return false;
  const QWidget* focused = QApplication::focusWidget();
  const bool hasNoPages = qobject_cast<const QLineEdit*>(focused) != nullptr ||
                          qobject_cast<const QAbstractButton*>(focused) != nullptr;
  const QPlainTextEdit* results = hasNoPages ? Results() : nullptr;
  if (results == nullptr) return false;
  QScrollBar& scroll = *results->verticalScrollBar();
  scroll.setValue(scroll.value() + (isUp ? -1 : 1) * scroll.pageStep());
  return true;
}

bool CanAct(const EditCommand& command) { return Target(command) != nullptr; }

void Act(const EditCommand& command) {
  if (QWidget* target = Target(command)) command.act(*target);
}

}  // namespace peakwright

#include "runtime/menus/edit_commands.h"

#include <algorithm>
#include <array>

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

bool ClipboardHasText() { return !QApplication::clipboard()->text().isEmpty(); }

/// Asks or tells the one or the other kind of text control; others answer with nothing.
template <class Result, class OnField, class OnArea>
Result OnTextControl(QWidget& focused, OnField onField, OnArea onArea) {
  if (auto* field = dynamic_cast<QLineEdit*>(&focused)) return onField(*field);
  if (auto* area = dynamic_cast<TextAreaView*>(&focused)) return onArea(*area);
  return Result();
}

bool HasSelection(QWidget& focused) {
  return OnTextControl<bool>(
      focused, [](QLineEdit& field) { return field.hasSelectedText(); },
      [](TextAreaView& area) { return area.textCursor().hasSelection(); });
}

bool CanUndo(QWidget& focused) {
  return OnTextControl<bool>(
      focused, [](QLineEdit& field) { return field.isUndoAvailable(); },
      [](TextAreaView& area) { return area.CanUndo(); });
}

bool CanRedo(QWidget& focused) {
  return OnTextControl<bool>(
      focused, [](QLineEdit& field) { return field.isRedoAvailable(); },
      [](TextAreaView& area) { return area.CanRedo(); });
}

bool CanPaste(QWidget& focused) {
  return OnTextControl<bool>(
      focused, [](QLineEdit&) { return ClipboardHasText(); },
      [](TextAreaView&) { return ClipboardHasText(); });
}

void Undo(QWidget& focused) {
  OnTextControl<void>(
      focused, [](QLineEdit& field) { field.undo(); }, [](TextAreaView& area) { area.Undo(); });
}

void Redo(QWidget& focused) {
  OnTextControl<void>(
      focused, [](QLineEdit& field) { field.redo(); }, [](TextAreaView& area) { area.Redo(); });
}

void Cut(QWidget& focused) {
  OnTextControl<void>(
      focused, [](QLineEdit& field) { field.cut(); }, [](TextAreaView& area) { area.Cut(); });
}

void Copy(QWidget& focused) {
  OnTextControl<void>(
      focused, [](QLineEdit& field) { field.copy(); }, [](TextAreaView& area) { area.copy(); });
}

void Paste(QWidget& focused) {
  OnTextControl<void>(
      focused, [](QLineEdit& field) { field.paste(); }, [](TextAreaView& area) { area.paste(); });
}

const std::array<EditCommand, 5> kCommands{{
    {"EditUndo", CanUndo, Undo},
    {"EditRedo", CanRedo, Redo},
    {"EditCut", HasSelection, Cut},
    {"EditCopy", HasSelection, Copy},
    {"EditPaste", CanPaste, Paste},
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
  const bool reachesResults = command.act == Undo || command.act == Redo;
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

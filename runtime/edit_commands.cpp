#include "runtime/edit_commands.h"

#include <algorithm>
#include <array>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>

#include "runtime/text_area_view.h"

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

bool CanPaste(QWidget& focused) {
  return OnTextControl<bool>(
      focused, [](QLineEdit&) { return ClipboardHasText(); },
      [](TextAreaView&) { return ClipboardHasText(); });
}

void Undo(QWidget& focused) {
  OnTextControl<void>(
      focused, [](QLineEdit& field) { field.undo(); }, [](TextAreaView& area) { area.Undo(); });
}

void Cut(QWidget& focused) {
  OnTextControl<void>(
      focused, [](QLineEdit& field) { field.cut(); }, [](TextAreaView& area) { area.cut(); });
}

void Copy(QWidget& focused) {
  OnTextControl<void>(
      focused, [](QLineEdit& field) { field.copy(); }, [](TextAreaView& area) { area.copy(); });
}

void Paste(QWidget& focused) {
  OnTextControl<void>(
      focused, [](QLineEdit& field) { field.paste(); }, [](TextAreaView& area) { area.paste(); });
}

const std::array<EditCommand, 4> kCommands{{
    {"EditUndo", CanUndo, Undo},
    {"EditCut", HasSelection, Cut},
    {"EditCopy", HasSelection, Copy},
    {"EditPaste", CanPaste, Paste},
}};

}  // namespace

const EditCommand* FindEditCommand(std::string_view menuItem) {
  const auto* const found =
      std::find_if(kCommands.begin(), kCommands.end(),
                   [&](const EditCommand& command) { return command.menuItem == menuItem; });
  return found == kCommands.end() ? nullptr : found;
}

bool CanAct(const EditCommand& command) {
  QWidget* focused = QApplication::focusWidget();
  return focused != nullptr && command.canAct(*focused);
}

void Act(const EditCommand& command) {
  if (CanAct(command)) command.act(*QApplication::focusWidget());
}

}  // namespace peakwright

#pragma once

#include <string_view>

class QKeyEvent;
class QWidget;

namespace peakwright {

/// A command of the Edit menu, which acts on the text control that has the focus. Undo and redo
/// act on the document window's text area where that control has nothing of its own for them.
struct EditCommand {
  std::string_view menuItem;
  bool (*canAct)(QWidget& focused);
  void (*act)(QWidget& focused);
};

/// The command behind the menu item of that name, or null.
const EditCommand* FindEditCommand(std::string_view menuItem);

/// Undo or redo if the event is the key for it, else null: these two act wherever the focus is.
const EditCommand* FindEditCommand(const QKeyEvent& event);

/// Shows the next or the former page of the document window's text area, if the event is the key
/// for it and the focused control has no pages of its own. The insertion point stays where it is.
bool TurnResults(const QKeyEvent& event);

bool CanAct(const EditCommand& command);
void Act(const EditCommand& command);

}  // namespace peakwright

#pragma once

#include <string_view>

class QWidget;

namespace peakwright {

/// A command of the Edit menu, which acts on the text control that has the focus.
struct EditCommand {
  std::string_view menuItem;
  bool (*canAct)(QWidget& focused);
  void (*act)(QWidget& focused);
};

/// The command behind the menu item of that name, or null.
const EditCommand* FindEditCommand(std::string_view menuItem);

bool CanAct(const EditCommand& command);
void Act(const EditCommand& command);

}  // namespace peakwright

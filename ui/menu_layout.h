#pragma once

#include <array>
#include <string_view>

/// The items of the menu bar, in their order.
namespace peakwright::menu_layout {

enum class Kind {
  Title,     // A menu; the items behind it are in it.
  Command,   // Enabled while a handler is bound to it.
  Marked,    // A command that shows whether something is on.
  Quit,      // The platform's quit command.
  Standard,  // Acts on the text control that has the focus.
};

struct Item {
  std::string_view Name;
  std::string_view Text;
  std::string_view Shortcut;
  Kind Of;
  char Mnemonic = '\0';  // A letter of the text, which opens or chooses the item with Alt.
};

inline constexpr std::array<Item, 17> kItems{{
    {"File", "File", "", Kind::Title, 'F'},
    {"FilePrint", "Print", "Cmd+P", Kind::Command, 'P'},
    {"FileRun", "Run", "Cmd+R", Kind::Command, 'R'},
    {"FileClear", "Clear", "", Kind::Command, 'C'},
    {"FileApplynitrogenrule", "Apply nitrogen rule", "", Kind::Marked, 'n'},
    {"FileAdditionalelements", "Additional elements", "", Kind::Marked, 'A'},
    {"FileElementdata", "Show isotope data", "", Kind::Marked, 'S'},
    {"FileMoreinfo", "More info", "", Kind::Command, 'M'},
    {"FileSeparator", "-", "", Kind::Command},
    {"FileUpdate", "Check for updates...", "Cmd+U", Kind::Command, 'u'},
    {"FileAbout", "About this program", "", Kind::Command, 'b'},
    {"FileQuit", "Quit", "Cmd+Q", Kind::Quit, 'Q'},
    {"Edit", "Edit", "", Kind::Title, 'E'},
    {"EditUndo", "Undo", "Cmd+Z", Kind::Standard, 'U'},
    {"EditCut", "Cut", "Cmd+X", Kind::Standard, 't'},
    {"EditCopy", "Copy", "Cmd+C", Kind::Standard, 'C'},
    {"EditPaste", "Paste", "Cmd+V", Kind::Standard, 'P'},
}};

}  // namespace peakwright::menu_layout

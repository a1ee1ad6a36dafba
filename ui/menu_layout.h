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
};

inline constexpr std::array<Item, 17> kItems{{
    {"File", "File", "", Kind::Title},
    {"FilePrint", "Print", "Cmd+P", Kind::Command},
    {"FileRun", "Run", "Cmd+R", Kind::Command},
    {"FileClear", "Clear", "", Kind::Command},
    {"FileApplynitrogenrule", "Apply nitrogen rule", "", Kind::Marked},
    {"FileAdditionalelements", "Additional elements", "", Kind::Marked},
    {"FileElementdata", "Show isotope data", "", Kind::Marked},
    {"FileMoreinfo", "More info", "", Kind::Command},
    {"FileSeparator", "-", "", Kind::Command},
    {"FileUpdate", "Check for updates...", "Cmd+U", Kind::Command},
    {"FileAbout", "About this program", "", Kind::Command},
    {"FileQuit", "Quit", "Cmd+Q", Kind::Quit},
    {"Edit", "Edit", "", Kind::Title},
    {"EditUndo", "Undo", "Cmd+Z", Kind::Standard},
    {"EditCut", "Cut", "Cmd+X", Kind::Standard},
    {"EditCopy", "Copy", "Cmd+C", Kind::Standard},
    {"EditPaste", "Paste", "Cmd+V", Kind::Standard},
}};

}  // namespace peakwright::menu_layout

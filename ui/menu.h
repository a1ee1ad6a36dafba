#pragma once

#include "runtime/desktop_menu.h"

namespace peakwright {

/// The program's one menu bar, with its File and Edit menus.
class Menu : public DesktopMenuBar {
 public:
  Menu();
  static Menu& Instance();
};

/// The item "Show isotope data", whose check mark says whether the isotopes window is wanted.
DesktopMenuItem& FileElementdata();

}  // namespace peakwright

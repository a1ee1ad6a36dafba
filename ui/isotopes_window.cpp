#include "ui/isotopes_window.h"

#include "ui/additional_elements_window.h"
#include "ui/edit_element_window.h"
#include "ui/isotopes_window_layout.h"
#include "ui/menu.h"
#include "ui/text_window.h"
#include "ui/window_placing.h"

namespace peakwright {

using namespace isotopes_window_layout;

Window3& Window3::Instance() { return DesktopApplication::Current().Implicit<Window3>(); }

Window3::Window3()
    : DesktopWindow(kWindow),
      ListBox1(*this, kElements, cells_),
      PushButton1(*this, kClose),
      Label1(*this, kHint) {
  ListBox1.DoublePressed = [this] { ListBox1_DoublePressed(); };
  PushButton1.Pressed = [this] { PushButton1_Pressed(); };
}

void Window3::Event_Opening() {
  PlaceBeside(*this, TextWindow::Instance());
  Top(kTop);
}

void Window3::ListBox1_DoublePressed() {
  const int row = ListBox1.SelectedRowIndex();
  if (row == -1) return;
  Window2::Instance().Edit(row);
  Window1::Instance().PopupMenu1.SelectedRowIndex(row + 1);
}

void Window3::PushButton1_Pressed() {
  Hide();
  FileElementdata().HasCheckMark(false);
}

}  // namespace peakwright

#include "ui/edit_element_window.h"

#include <cstdint>

#include "engine/number_text.h"
#include "ui/additional_elements_window.h"
#include "ui/isotopes_window.h"
#include "ui/menu.h"
#include "ui/spoken_texts.h"
#include "ui/text_window.h"
#include "ui/window_placing.h"

namespace peakwright {

using namespace edit_element_window_layout;

Window2& Window2::Instance() { return DesktopApplication::Current().Implicit<Window2>(); }

Window2::Window2()
    : DesktopWindow(kWindow),
      Label1(*this, kHeading),
      Label2(*this, kHeadings),
      textfield1(*this, kCells),
      PushButton1(*this, kCancel),
      PushButton2(*this, kChange),
      textfield2(*this, kRow),
      Label4(*this, kHint),
      PushButton3(*this, kShowIsotopes) {
  for (int column = 0; column < kElementColumns; ++column) Label2(column).Names(textfield1(column));
  PushButton1.Pressed = [this] { PushButton1_Pressed(); };
  PushButton2.Pressed = [this] { PushButton2_Pressed(); };
  PushButton3.Pressed = [this] { PushButton3_Pressed(); };
}

void Window2::Event_Opening() {
  PlaceBeside(*this, Window1::Instance());
  Top(TextWindow::Instance().Top());
  const DesktopListBox& table = Window3::Instance().ListBox1;
  for (int column = 0; column < table.ColumnCount(); ++column) {
    Label2(column).Text(table.HeaderAt(column));
  }
}

void Window2::Edit(int row) {
  const DesktopListBox& table = Window3::Instance().ListBox1;
  for (int column = 0; column < table.ColumnCount(); ++column) {
    textfield1(column).Text(table.CellTextAt(row, column));
    textfield1(column).AccessibleDescription(
        CellDescription(table.HeaderAt(column), table.CellTextAt(row, 0)));
  }
  textfield2.Text(Str(row));
  Show();
}

void Window2::PushButton1_Pressed() {
  Hide();
  Window1::Instance().PopupMenu1.SelectedRowIndex(0);
}

void Window2::PushButton2_Pressed() {
  DesktopListBox& table = Window3::Instance().ListBox1;
  const std::int64_t number = Truncate(Val(textfield2.Text()));
  if (number < 0 || number >= table.RowCount()) {  // No row to change.
    PushButton1_Pressed();
    return;
  }
  const int row = static_cast<int>(number);
  Window1& counts = Window1::Instance();
  counts.PopupMenu1.AddRowAt(row + 1, textfield1(0).Text());
  counts.PopupMenu1.RemoveRowAt(row + 2);
  const int additional = row - kCoreElementCount;
  if (additional >= 0) counts.NameCount(additional, textfield1(0).Text());
  for (int column = 0; column < table.ColumnCount(); ++column) {
    table.CellTextAt(row, column, textfield1(column).Text());
  }
  counts.NameCoreElements();
  Hide();
  counts.PopupMenu1.SelectedRowIndex(0);
  counts.Show();
}

void Window2::PushButton3_Pressed() {
  FileElementdata().HasCheckMark(true);
  Window3::Instance().Show();
}

}  // namespace peakwright

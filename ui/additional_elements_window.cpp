#include "ui/additional_elements_window.h"

#include "ui/edit_element_window.h"
#include "ui/isotopes_window.h"
#include "ui/menu.h"
#include "ui/results.h"
#include "ui/spoken_texts.h"
#include "ui/text_window.h"
#include "ui/window_placing.h"

namespace peakwright {

using namespace additional_elements_window_layout;

Window1& Window1::Instance() { return DesktopApplication::Current().Implicit<Window1>(); }

Window1::Window1()
    : DesktopWindow(kWindow),
      Label1(*this, kCoreElements),
      Label2(*this, kHowMany),
      Label3(*this, kNames),
      textfield1(*this, kCounts),
      PushButton1(*this, kClose),
      PushButton2(*this, kClear),
      PushButton3(*this, kRun),
      PopupMenu1(*this, kEditIsotopes),
      PushButton4(*this, kShowIsotopes) {
  for (int i = 0; i < kAdditionalElementCount; ++i) {
    Label3(i).Names(textfield1(i));
    Label3(i).MouseDown = [this](int, int) { return Label3_MouseDown(); };
  }
  PushButton1.Pressed = [this] { PushButton1_Pressed(); };
  PushButton2.Pressed = [this] { PushButton2_Pressed(); };
  PushButton3.Pressed = [this] { PushButton3_Pressed(); };
  PopupMenu1.SelectionChanged = [this] { PopupMenu1_SelectionChanged(); };
  PushButton4.Pressed = [this] { PushButton4_Pressed(); };
  PopupMenu1_Opening();
}

void Window1::Event_Opening() {
  PlaceBeside(*this, TextWindow::Instance());
  Top(TextWindow::Instance().Top());
  NameCoreElements();
  const DesktopListBox& table = Window3::Instance().ListBox1;
  for (int i = 0; i < kAdditionalElementCount; ++i) {
    NameCount(i, table.CellTextAt(kCoreElementCount + i, 0));
  }
}

void Window1::NameCoreElements() {
  const DesktopListBox& table = Window3::Instance().ListBox1;
  std::string caption = "Elements other than " + table.CellTextAt(0, 0);
  for (int row = 1; row < kCoreElementCount; ++row) caption += ", " + table.CellTextAt(row, 0);
  Label1.Text(caption);
}

void Window1::NameCount(int index, const std::string& name) {
  Label3(index).Text(name);
  textfield1(index).AccessibleDescription(CountDescription(name));
}

bool Window1::Label3_MouseDown() {
  PushButton4_Pressed();
  return false;
}

void Window1::PushButton1_Pressed() {
  TextWindow::Instance().Show();
  Hide();
}

void Window1::PushButton2_Pressed() {
  for (int i = 0; i < kAdditionalElementCount; ++i) textfield1(i).Text("0");
}

void Window1::PushButton3_Pressed() {
  WriteAndScroll(Module1::calculate, kRunScrollStep);
  TextWindow::Instance().Show();
}

void Window1::PopupMenu1_Opening() {
  const DesktopListBox& table = Window3::Instance().ListBox1;
  for (int row = 0; row < table.RowCount(); ++row) PopupMenu1.AddRow(table.CellTextAt(row, 0));
  PopupMenu1.SelectedRowIndex(0);
}

void Window1::PopupMenu1_SelectionChanged() {
  const int row = PopupMenu1.SelectedRowIndex() - 1;
  if (row >= 0) Window2::Instance().Edit(row);
  Window3::Instance().ListBox1.SelectedRowIndex(row);
}

void Window1::PushButton4_Pressed() {
  FileElementdata().HasCheckMark(true);
  Window3::Instance().Show();
}

}  // namespace peakwright

#pragma once

#include "runtime/control_array.h"
#include "runtime/desktop_button.h"
#include "runtime/desktop_label.h"
#include "runtime/desktop_text_field.h"
#include "runtime/desktop_window.h"
#include "ui/edit_element_window_layout.h"

namespace peakwright {

/// "Edit Selected Element": a working copy of one row of the element table, and the only place
/// where the table is changed.
class Window2 : public DesktopWindow {
 public:
  Window2();
  static Window2& Instance();

  DesktopLabel Label1;                                         ///< "Edit element isotope values"
  ControlArray<DesktopLabel, kElementColumns> Label2;          ///< "Name" to "%(M+2)/M"
  ControlArray<DesktopTextField, kElementColumns> textfield1;  ///< The row's cells.
  DesktopButton PushButton1;                                   ///< "Cancel"
  DesktopButton PushButton2;                                   ///< "Change"
  DesktopTextField textfield2;  ///< Never seen: the number of the row being edited.
  DesktopLabel Label4;          ///< "Either choice closes this window."
  DesktopButton PushButton3;    ///< "Show isotopes"

  /// Fills the fields from a row of the table, from 0, and shows the window.
  void Edit(int row);

 protected:
  void Event_Opening() override;

 private:
  void PushButton1_Pressed();
  void PushButton2_Pressed();
  void PushButton3_Pressed();
};

}  // namespace peakwright

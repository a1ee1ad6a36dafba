#pragma once

#include "runtime/control_array.h"
#include "runtime/desktop_button.h"
#include "runtime/desktop_label.h"
#include "runtime/desktop_popup_menu.h"
#include "runtime/desktop_text_field.h"
#include "runtime/desktop_window.h"
#include "ui/additional_elements_window_layout.h"

namespace peakwright {

/// "Additional Elements": how many atoms of each element other than the four core elements.
class Window1 : public DesktopWindow {
 public:
  Window1();
  static Window1& Instance();

  DesktopLabel Label1;  ///< "Elements other than C, H, N, O", as the table names these.
  DesktopLabel Label2;  ///< "How many of each?"
  ControlArray<DesktopLabel, kAdditionalElementCount> Label3;  ///< "F" to "Xx", before the counts.
  ControlArray<DesktopTextField, kAdditionalElementCount> textfield1;  ///< The counts.
  DesktopButton PushButton1;                                           ///< "Close"
  DesktopButton PushButton2;                                           ///< "Clear", of the counts
  DesktopButton PushButton3;                                           ///< "Run"
  DesktopPopupMenu PopupMenu1;  ///< "Edit isotopes", row 0; row r + 1 stands for table row r.
  DesktopButton PushButton4;    ///< "Show isotopes"

  /// Brings the caption that names the core elements up to the table.
  void NameCoreElements();
  /// Names the count field of the additional element `index`.
  void NameCount(int index, const std::string& name);

 protected:
  void Event_Opening() override;

 private:
  bool Label3_MouseDown();
  void PushButton1_Pressed();
  void PushButton2_Pressed();
  void PushButton3_Pressed();
  void PopupMenu1_Opening();
  void PopupMenu1_SelectionChanged();
  void PushButton4_Pressed();
};

}  // namespace peakwright

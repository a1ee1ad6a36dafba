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

  DesktopLabel Label1;  ///< Names the core elements.
  DesktopLabel Label2;
  ControlArray<DesktopLabel, kAdditionalElementCount> Label3;
  ControlArray<DesktopTextField, kAdditionalElementCount> textfield1;
  DesktopButton PushButton1;    ///< Close
  DesktopButton PushButton2;    ///< Clear
  DesktopButton PushButton3;    ///< Run
  DesktopPopupMenu PopupMenu1;  ///< Row 0 is the title; row r + 1 stands for table row r.
  DesktopButton PushButton4;    ///< Show isotopes

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

#pragma once

#include <functional>

#include "runtime/desktop_button.h"
#include "runtime/desktop_check_box.h"
#include "runtime/desktop_label.h"
#include "runtime/desktop_menu.h"
#include "runtime/desktop_text_area.h"
#include "runtime/desktop_text_field.h"
#include "runtime/desktop_window.h"

namespace peakwright {

/// The main window: takes the mass, shows the results, and carries the menu commands.
class TextWindow : public DesktopWindow {
 public:
  TextWindow();
  static TextWindow& Instance();

  DesktopTextField textfield1;  ///< The mass.
  DesktopLabel MassText;        ///< "Mass:"
  DesktopButton Pushbutton1;    ///< "Run"
  DesktopCheckBox checkbox1;    ///< "Apply nitrogen rule"
  DesktopTextArea textfield2;   ///< The results.
  DesktopCheckBox CheckBox2;    ///< "Additional elements"
  DesktopButton PushButton2;    ///< "Clear", of the results
  DesktopButton PushButton3;    ///< "More info"

  /// What the command "Check for updates..." does; the application sets it.
  std::function<void()> CheckForUpdates;

 protected:
  void Event_Opening() override;
  void Event_Resized() override;

 private:
  void AddMenuHandlers();
  DesktopMenuItem& FileApplynitrogenrule() const;
  DesktopMenuItem& FileAdditionalelements() const;

  void Pushbutton1_Pressed();
  void checkbox1_ValueChanged();
  void CheckBox2_ValueChanged();
  void PushButton2_Pressed();
  void PushButton3_Pressed();

  bool FilePrint_Action();
  bool FileRun_Action();
  bool FileClear_Action();
  bool FileApplynitrogenrule_Action();
  bool FileAdditionalelements_Action();
  bool FileElementdata_Action();
  bool FileMoreinfo_Action();
  bool FileUpdate_Action();
  bool FileAbout_Action();
  bool FileQuit_Action();
};

}  // namespace peakwright

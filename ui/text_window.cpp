#include "ui/text_window.h"

#include "runtime/memory.h"
#include "ui/additional_elements_window.h"
#include "ui/edit_element_window.h"
#include "ui/help_texts.h"
#include "ui/isotopes_window.h"
#include "ui/menu.h"
#include "ui/printing.h"
#include "ui/results.h"
#include "ui/spoken_texts.h"
#include "ui/text_window_layout.h"

namespace peakwright {

using namespace text_window_layout;

TextWindow& TextWindow::Instance() { return DesktopApplication::Current().Implicit<TextWindow>(); }

TextWindow::TextWindow()
    : DesktopWindow(kWindow),
      textfield1(*this, kMass),
      MassText(*this, kMassCaption),
      Pushbutton1(*this, kRun),
      checkbox1(*this, kNitrogenRule),
      textfield2(*this, kResults),
      CheckBox2(*this, kAdditionalElements),
      PushButton2(*this, kClear),
      PushButton3(*this, kMoreInfo) {
  MassText.Names(textfield1);
  Pushbutton1.Pressed = [this] { Pushbutton1_Pressed(); };
  checkbox1.ValueChanged = [this] { checkbox1_ValueChanged(); };
  textfield2.Restored = [this](std::int64_t formerLength) {
    Announce(SpokenRestoration(formerLength == 0, textfield2.TextLength() == 0));
  };
  CheckBox2.ValueChanged = [this] { CheckBox2_ValueChanged(); };
  PushButton2.Pressed = [this] { PushButton2_Pressed(); };
  PushButton3.Pressed = [this] { PushButton3_Pressed(); };
  MenuBar(Menu::Instance());
  AddMenuHandlers();
}

void TextWindow::AddMenuHandlers() {
  AddMenuHandler("FilePrint", [this] { return FilePrint_Action(); });
  AddMenuHandler("FileMoreinfo", [this] { return FileMoreinfo_Action(); });
  AddMenuHandler("FileElementdata", [this] { return FileElementdata_Action(); });
  AddMenuHandler("FileAbout", [this] { return FileAbout_Action(); });
  AddMenuHandler("FileUpdate", [this] { return FileUpdate_Action(); });
  AddMenuHandler("FileQuit", [this] { return FileQuit_Action(); });
  AddMenuHandler("FileRun", [this] { return FileRun_Action(); });
  AddMenuHandler("FileClear", [this] { return FileClear_Action(); });
  AddMenuHandler("FileAdditionalelements", [this] { return FileAdditionalelements_Action(); });
  AddMenuHandler("FileApplynitrogenrule", [this] { return FileApplynitrogenrule_Action(); });
}

DesktopMenuItem& TextWindow::FileApplynitrogenrule() const {
  return *MenuBar()->Lookup("FileApplynitrogenrule");
}

DesktopMenuItem& TextWindow::FileAdditionalelements() const {
  return *MenuBar()->Lookup("FileAdditionalelements");
}

void TextWindow::Event_Opening() {
  textfield2.FontName("Courier");
  textfield2.FontSize(16);
  Module1::about0();
}

void TextWindow::Event_Resized() {
  textfield2.Height(Height() - kHeightBesideResults);
  textfield2.Width(Width() - kWidthBesideResults);
}

void TextWindow::Pushbutton1_Pressed() { WriteAndScroll(Module1::calculate, kRunScrollStep); }

void TextWindow::checkbox1_ValueChanged() {
  FileApplynitrogenrule().HasCheckMark(checkbox1.Value());
  Pushbutton1.Press();
}

void TextWindow::CheckBox2_ValueChanged() {
  if (CheckBox2.Value()) {
    Window1::Instance().Show();
  } else {
    Window1::Instance().Hide();
    Window2::Instance().Hide();
  }
  FileAdditionalelements().HasCheckMark(CheckBox2.Value());
}

void TextWindow::PushButton2_Pressed() {
  textfield2.Text("");
  Announce(kResultsCleared);
}

void TextWindow::PushButton3_Pressed() { WriteAndScroll(Module1::about, kHelpScrollStep); }

bool TextWindow::FilePrint_Action() {
  Module1::printer();
  return false;
}

bool TextWindow::FileRun_Action() {
  Pushbutton1.Press();
  return false;
}

bool TextWindow::FileClear_Action() {
  PushButton2.Press();
  return false;
}

bool TextWindow::FileMoreinfo_Action() {
  PushButton3.Press();
  return false;
}

bool TextWindow::FileApplynitrogenrule_Action() {
  checkbox1.Value(!checkbox1.Value());
  return false;
}

bool TextWindow::FileAdditionalelements_Action() {
  CheckBox2.Value(!CheckBox2.Value());
  return false;
}

bool TextWindow::FileElementdata_Action() {
  FileElementdata().HasCheckMark(!FileElementdata().HasCheckMark());
  if (FileElementdata().HasCheckMark()) {
    Window3::Instance().Show();
  } else {
    Window3::Instance().Hide();
  }
  return false;
}

bool TextWindow::FileUpdate_Action() {
  WithMemoryFor("the check for updates", [this] {
    RequireMemory();
    if (CheckForUpdates) CheckForUpdates();
  });
  return false;
}

bool TextWindow::FileAbout_Action() {
  WriteAndScroll(Module1::about0, kHelpScrollStep);
  return false;
}

bool TextWindow::FileQuit_Action() {
  DesktopApplication::Current().Quit(0);
  return false;
}

}  // namespace peakwright

#include "app/application.h"

#include "engine/global_strings.h"
#include "ui/menu.h"
#include "ui/text_window.h"
#include "update/update_window.h"

namespace peakwright {
namespace {

constexpr ApplicationIdentity kIdentity{
    .Name = "Peakwright", .Program = "peakwright", .Version = "1.70"};

/// Opens the main window, the only one that comes up by itself, and ties the update window to it.
void MakeDefaultView() {
  TextWindow::Instance().CheckForUpdates = [] { WindowDownload::Instance().Show(); };
  AnchorUpdateWindow([] { return TextWindow::Instance().Left(); });
}

}  // namespace

App::App(int& argc, char** argv) : DesktopApplication(argc, argv, kIdentity) {
  MenuBar(Menu::Instance());
}

int App::Main() { return Run(MakeDefaultView); }

void App::BringUp() { Start(MakeDefaultView); }

void App::Event_Opening() {
  Module1::CR = '\n';
  Module1::appname = "Peakwright.app";
}

}  // namespace peakwright

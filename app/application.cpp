#include "app/application.h"

#include <utility>

#include "engine/global_strings.h"
#include "ui/menu.h"
#include "ui/text_window.h"

namespace peakwright {
namespace {

constexpr ApplicationIdentity kIdentity{
    .Name = "Peakwright", .Program = "peakwright", .Version = PEAKWRIGHT_VERSION};

}  // namespace

App::App(int& argc, char** argv, UpdateSurroundings surroundings)
    : DesktopApplication(argc, argv, kIdentity), surroundings_(std::move(surroundings)) {
  surroundings_.AnchorLeft = [] { return TextWindow::Instance().Left(); };
  MenuBar(Menu::Instance());
}

void App::Event_Opening() {
  Module1::CR = '\n';
  Module1::appname = "Peakwright.app";
}

void App::MakeDefaultView() {
  TextWindow::Instance().CheckForUpdates = [this] { WindowDownload::ShowIn(surroundings_); };
}

}  // namespace peakwright

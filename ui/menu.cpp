#include "ui/menu.h"

#include <memory>
#include <utility>

#include "ui/menu_layout.h"

namespace peakwright {
namespace {

using menu_layout::Kind;

std::unique_ptr<DesktopMenuItem> MakeItem(const menu_layout::Item& layout) {
  std::unique_ptr<DesktopMenuItem> item = layout.Of == Kind::Quit
                                              ? std::make_unique<DesktopQuitMenuItem>()
                                              : std::make_unique<DesktopMenuItem>();
  item->Name(layout.Name);
  item->AutoEnabled(layout.Of != Kind::Title && layout.Of != Kind::Standard);
  item->Text(layout.Text, layout.Mnemonic);
  item->Visible(true);
  item->Shortcut(layout.Shortcut);
  if (layout.Of == Kind::Marked) item->HasCheckMark(false);
  return item;
}

}  // namespace

Menu& Menu::Instance() { return DesktopApplication::Current().Implicit<Menu>(); }

Menu::Menu() {
  DesktopMenuItem* title = nullptr;
  for (const menu_layout::Item& layout : menu_layout::kItems) {
    std::unique_ptr<DesktopMenuItem> item = MakeItem(layout);
    if (layout.Of == Kind::Title) {
      AddMenu(std::move(item));
      title = Child(layout.Name);
    } else {
      title->AddItem(std::move(item));
    }
  }
}

DesktopMenuItem& FileElementdata() {
  return *DesktopApplication::Current().MenuBar()->Lookup("FileElementdata");
}

}  // namespace peakwright

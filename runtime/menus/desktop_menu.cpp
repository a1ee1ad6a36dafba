#include "runtime/desktop_menu.h"

#include <algorithm>
#include <utility>

#include <QAction>
#include <QCoreApplication>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include "runtime/application/toolkit_side.h"
#include "runtime/menus/edit_commands.h"
#include "runtime/menus/menu_keys.h"
#include "runtime/text/toolkit_strings.h"

namespace peakwright {
namespace {

DesktopMenuItem* Named(const std::vector<std::unique_ptr<DesktopMenuItem>>& items,
                       std::string_view name) {
  const auto found = std::find_if(items.begin(), items.end(),
                                  [name](const auto& item) { return item->Name() == name; });
  return found == items.end() ? nullptr : found->get();
}

DesktopMenuItem* NamedBelow(const std::vector<std::unique_ptr<DesktopMenuItem>>& items,
                            std::string_view name) {
  if (DesktopMenuItem* item = Named(items, name)) return item;
  for (const auto& item : items) {
    if (DesktopMenuItem* below = item->Lookup(name)) return below;
  }
  return nullptr;
}

}  // namespace

DesktopMenuItem::DesktopMenuItem() : action_(std::make_unique<QAction>()) {
  action_->setMenuRole(QAction::NoRole);
  QObject::connect(action_.get(), &QAction::triggered, [this] {
    // The toolkit flips the mark by itself; here only the handler does.
    action_->setChecked(marked_);
    const auto handle = [this] {
      if (handler_) handler_();
    };
    if (action_->menuRole() == QAction::QuitRole) {
      DesktopApplication::Current().Raise(handle);
    } else {
      ToolkitSide::RaiseInTurn(*action_, handle);
    }
  });
}

DesktopMenuItem::~DesktopMenuItem() = default;

void DesktopMenuItem::Name(std::string_view name) {
  name_ = name;
  if (const EditCommand* command = FindEditCommand(name)) {
    StandardCommand([command] { return CanAct(*command); }, [command] { Act(*command); });
  }
}

void DesktopMenuItem::Text(std::string_view text, char mnemonic) {
  const bool isSeparator = text == "-";
  QString caption = isSeparator ? QString() : ToCaption(text);
  const qsizetype at = mnemonic == '\0' ? -1 : caption.indexOf(QLatin1Char(mnemonic));
  if (at >= 0) caption.insert(at, u'&');
  action_->setText(caption);
  action_->setSeparator(isSeparator);
  NativeTitle();
}

void DesktopMenuItem::Visible(bool visible) { action_->setVisible(visible); }

void DesktopMenuItem::Shortcut(std::string_view shortcut) {
  // The toolkit's Ctrl is the Command key on macOS.
  QString keys = QString::fromUtf8(shortcut.data(), static_cast<qsizetype>(shortcut.size()));
  action_->setShortcut(QKeySequence(keys.replace(QStringLiteral("Cmd+"), QStringLiteral("Ctrl+"))));
}

void DesktopMenuItem::AutoEnabled(bool enabled) {
  autoEnabled_ = enabled;
  if (enabled) action_->setEnabled(handler_ != nullptr);
}

void DesktopMenuItem::HasCheckMark(bool marked) {
  marked_ = marked;
  action_->setCheckable(true);
  action_->setChecked(marked);
}

void DesktopMenuItem::AddItem(std::unique_ptr<DesktopMenuItem> item) {
  NativeMenu().addAction(item->action_.get());
  QObject::connect(&NativeMenu(), &QMenu::aboutToShow, item->action_.get(), [added = item.get()] {
    if (added->canAct_) added->action_->setEnabled(added->canAct_());
  });
  children_.push_back(std::move(item));
}

DesktopMenuItem* DesktopMenuItem::Child(std::string_view name) const {
  return Named(children_, name);
}

DesktopMenuItem* DesktopMenuItem::Lookup(std::string_view name) const {
  return NamedBelow(children_, name);
}

bool DesktopMenuItem::HasCommand(const QKeySequence& keys) const {
  return (handler_ != nullptr && action_->shortcut() == keys) ||
         std::any_of(children_.begin(), children_.end(),
                     [&](const auto& child) { return child->HasCommand(keys); });
}

void DesktopMenuItem::Handler(std::function<bool()> action) {
  handler_ = std::move(action);
  if (autoEnabled_) action_->setEnabled(handler_ != nullptr);
}

void DesktopMenuItem::StandardCommand(std::function<bool()> canAct, std::function<void()> act) {
  canAct_ = std::move(canAct);
  handler_ = [perform = std::move(act)] {
    perform();
    return false;
  };
}

QMenu& DesktopMenuItem::NativeMenu() {
  if (!menu_) {
    menu_ = std::make_unique<QMenu>();
    NativeTitle();
  }
  return *menu_;
}

void DesktopMenuItem::NativeTitle() {
  if (menu_ == nullptr) return;
  menu_->setTitle(action_->text());
  menu_->setAccessibleName(QString(action_->text()).remove(u'&'));
}

DesktopQuitMenuItem::DesktopQuitMenuItem() { action_->setMenuRole(QAction::QuitRole); }

DesktopMenuBar::DesktopMenuBar()
    : bar_(std::make_unique<QMenuBar>()), keys_(std::make_unique<MenuKeys>(*this)) {
  QCoreApplication::instance()->installEventFilter(keys_.get());
  bar_->setAccessibleName(QStringLiteral("Menu bar"));
}
DesktopMenuBar::~DesktopMenuBar() = default;

void DesktopMenuBar::AddMenu(std::unique_ptr<DesktopMenuItem> title) {
  bar_->addMenu(&title->NativeMenu());
  keys_->Follow(title->NativeMenu());
  titles_.push_back(std::move(title));
}

DesktopMenuItem* DesktopMenuBar::Child(std::string_view name) const { return Named(titles_, name); }

DesktopMenuItem* DesktopMenuBar::Lookup(std::string_view name) const {
  return NamedBelow(titles_, name);
}

bool DesktopMenuBar::HasCommand(const QKeySequence& keys) const {
  return std::any_of(titles_.begin(), titles_.end(),
                     [&](const auto& title) { return title->HasCommand(keys); });
}

QMenuBar* ToolkitSide::Of(const DesktopMenuBar& bar) { return bar.bar_.get(); }
QAction* ToolkitSide::Of(const DesktopMenuItem& item) { return item.action_.get(); }
QMenu& ToolkitSide::MenuOf(DesktopMenuItem& title) { return title.NativeMenu(); }

}  // namespace peakwright

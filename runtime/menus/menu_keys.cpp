#include "runtime/menus/menu_keys.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>

#include "runtime/application/toolkit_side.h"
#include "runtime/desktop_menu.h"
#include "runtime/menus/edit_commands.h"

namespace peakwright {
namespace {

bool OpensMenuBar(const QKeyEvent& event) {
  return event.key() == Qt::Key_F10 && event.modifiers() == Qt::NoModifier;
}

/// Alt and a letter that opened no menu. A third-level key (AltGr) is no Alt.
bool IsStrayMnemonic(const QKeyEvent& event) {
  const bool withAlt = (event.modifiers() & ~Qt::ShiftModifier) == Qt::AltModifier;
  return withAlt && !event.text().isEmpty() && event.text().front().isPrint();
}

/// Has assistive tools speak the name of a menu that has followed another. The toolkit would have
/// them speak its first item, and then the control that has the focus, as if that had come back.
void TellName(QMenuBar& bar, QMenu& menu) {
  if (!QAccessible::isActive() || !menu.isVisible()) return;
  menu.setActiveAction(nullptr);  // As when a key opens the first menu.
  QAccessibleEvent focus(&bar, QAccessible::Focus);
  focus.setChild(static_cast<int>(bar.actions().indexOf(menu.menuAction())));
  QAccessible::updateAccessibility(&focus);
}

}  // namespace

void MenuKeys::Follow(QMenu& menu) {
  connect(&menu, &QMenu::aboutToShow, this, [this, &menu] {
    QMenuBar& bar = *ToolkitSide::Of(bar_);
    focused_ = bar.window()->focusWidget();
    if (!hasJustClosed_) return;
    QMetaObject::invokeMethod(
        &menu, [&] { TellName(bar, menu); }, Qt::QueuedConnection);
  });
  connect(&menu, &QMenu::aboutToHide, this, [this] { hasJustClosed_ = true; });
  connect(&menu, &QMenu::aboutToHide, this, &MenuKeys::LeaveBar, Qt::QueuedConnection);
}

bool MenuKeys::eventFilter(QObject*, QEvent* event) {
  const bool isKey = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
  if (!isKey || QApplication::activePopupWidget() != nullptr) return false;
  auto& key = static_cast<QKeyEvent&>(*event);
  // Kept from the control, which would take a command's key for itself: in a text field of X11,
  // Ctrl+U would delete what the user typed.
  if (event->type() == QEvent::ShortcutOverride) return bar_.HasCommand(key.keyCombination());
  return QApplication::activeModalWidget() == nullptr && Acts(key);
}

bool MenuKeys::Acts(const QKeyEvent& event) const {
  if (OpensMenuBar(event)) {
    ToolkitSide::Of(bar_)->setActiveAction(ToolkitSide::Of(bar_)->actions().front());
    return true;
  }
  if (const EditCommand* command = FindEditCommand(event)) {
    Act(*command);
    return true;
  }
  return TurnResults(event) || IsStrayMnemonic(event);
}

void MenuKeys::LeaveBar() {
  hasJustClosed_ = false;
  QMenuBar& bar = *ToolkitSide::Of(bar_);
  // Another of the bar's menus may have opened in this one's place.
  if (QApplication::activePopupWidget() != nullptr || bar.window()->focusWidget() != &bar) return;
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QCoreApplication::sendEvent(&bar, &escape);
  if (focused_ != nullptr && bar.window()->focusWidget() == &bar) focused_->setFocus();
}

}  // namespace peakwright

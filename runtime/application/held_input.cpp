#include "runtime/application/held_input.h"

#include <cassert>
#include <memory>
#include <utility>

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>

#include "runtime/application/toolkit_side.h"

namespace peakwright {
namespace {

bool IsDragging(const QEvent& event) {
  return event.type() == QEvent::MouseMove &&
         static_cast<const QMouseEvent&>(event).buttons() != Qt::NoButton;
}

/// Whether an event that reaches a window from outside is something that the user does there.
/// A mouse that only passes by does nothing.
bool IsDoneByUser(const QEvent& event) {
  switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::NativeGesture:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
      return true;
    default:
      return IsDragging(event);
  }
}

/// Whether the event works the menus.
bool IsForMenus(const QEvent& event) {
  if (qobject_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr ||
      qobject_cast<QMenuBar*>(QApplication::focusWidget()) != nullptr) {
    return true;
  }
  if (event.type() != QEvent::MouseButtonPress) return false;
  const QPoint at = static_cast<const QMouseEvent&>(event).globalPosition().toPoint();
  return qobject_cast<QMenuBar*>(QApplication::widgetAt(at)) != nullptr;
}

/// Makes a copy when it is wanted: one of a mouse event that is made before, by the toolkit or by
/// us, follows the mouse to where it goes meanwhile.
std::function<std::shared_ptr<QEvent>()> CopyOf(const QEvent& event) {
  if (event.type() < QEvent::MouseButtonPress || event.type() > QEvent::MouseMove) {
    return [copy = std::shared_ptr<QEvent>(event.clone())] { return copy; };
  }
  const auto& mouse = static_cast<const QMouseEvent&>(event);
  return [type = mouse.type(), at = mouse.position(), inScene = mouse.scenePosition(),
          global = mouse.globalPosition(), button = mouse.button(), buttons = mouse.buttons(),
          with = mouse.modifiers()] {
    return std::make_shared<QMouseEvent>(type, at, inScene, global, button, buttons, with);
  };
}

/// Whether a shortcut opens a menu or ends the program.
bool TakesEffectAtOnce(QObject& shortcutOf) {
  const auto* action = qobject_cast<QAction*>(&shortcutOf);
  return qobject_cast<QMenuBar*>(&shortcutOf) != nullptr ||
         (action != nullptr && action->menuRole() == QAction::QuitRole);
}

}  // namespace

void HeldInput::Hold() {
  if (waits_++ > 0) return;
  isHolding_ = true;
  QCoreApplication::instance()->installEventFilter(this);
}

void HeldInput::Release() {
  assert(waits_ > 0);
  if (--waits_ == 0)
    QMetaObject::invokeMethod(
        this, [this] { LetGo(); }, Qt::QueuedConnection);
}

void HeldInput::Keep(QObject& receiver, std::function<void()> step) {
  kept_.push_back({&receiver, std::move(step), false});
}

void HeldInput::KeepEvent(QObject& receiver, const QEvent& event) {
  const bool isDrag = IsDragging(event);
  if (isDrag && !kept_.empty() && kept_.back().IsDrag && kept_.back().Receiver == &receiver) {
    kept_.pop_back();
  }
  Keep(receiver,
       [&receiver, copy = CopyOf(event)] { QCoreApplication::sendEvent(&receiver, copy().get()); });
  kept_.back().IsDrag = isDrag;
}

bool HeldInput::eventFilter(QObject* watched, QEvent* event) {
  bool isHeld = false;
  switch (event->type()) {
    case QEvent::DragEnter:  // Nothing can be dropped: what is dragged may be gone afterwards.
    case QEvent::Drop:
      event->ignore();
      return true;
    case QEvent::Shortcut:
      isHeld = !TakesEffectAtOnce(*watched);
      break;
    case QEvent::InputMethod:
      isHeld = true;
      break;
    default:
      isHeld = watched->isWindowType() && IsDoneByUser(*event) && !IsForMenus(*event);
  }
  if (isHeld) KeepEvent(*watched, *event);
  return isHeld;
}

void HeldInput::LetGo() {
  if (waits_ > 0) return;  // One wait has followed another.
  QCoreApplication::instance()->removeEventFilter(this);
  isHolding_ = false;
  while (!kept_.empty() && !isHolding_) {
    const Step next = std::move(kept_.front());
    kept_.pop_front();
    if (next.Receiver != nullptr) next.Take();
  }
}

Waiting::Waiting() { ToolkitSide::Input().Hold(); }
Waiting::~Waiting() { ToolkitSide::Input().Release(); }

}  // namespace peakwright

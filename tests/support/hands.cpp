#include "tests/support/hands.h"

#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QWidget>

#include "runtime/application/toolkit_side.h"
#include "runtime/desktop_ui_control.h"
#include "runtime/desktop_window.h"

namespace peakwright {

void Paint() { QApplication::processEvents(); }

void PressKeys(const DesktopUIControl& control, const char* keys) {
  const QKeyCombination pressed = QKeySequence(QString::fromLatin1(keys))[0];
  const bool typed =
      pressed.keyboardModifiers() == Qt::NoModifier && pressed.key() < Qt::Key_Escape;
  QKeyEvent event(QEvent::KeyPress, pressed.key(), pressed.keyboardModifiers(),
                  typed ? QString(QChar(static_cast<char16_t>(pressed.key()))) : QString());
  QApplication::sendEvent(ToolkitSide::Of(control), &event);
}

void Resize(const DesktopWindow& window, int width, int height) {
  ToolkitSide::Of(window)->resize(width, height);
}

void StayOffScreen() { qputenv("QT_QPA_PLATFORM", "offscreen"); }

}  // namespace peakwright

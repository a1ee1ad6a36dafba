#include "tests/support/painting.h"

#include <QApplication>
#include <QWidget>

#include "runtime/desktop_window.h"

namespace peakwright {

void PaintNow(const DesktopWindow& window) {
  QApplication::processEvents();
  window.Native()->repaint();
}

void StayOffScreen() { qputenv("QT_QPA_PLATFORM", "offscreen"); }

}  // namespace peakwright

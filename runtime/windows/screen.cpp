#include "runtime/screen.h"

#include <QGuiApplication>
#include <QScreen>

namespace peakwright {

int Screen::Width() const {
  const QList<QScreen*> screens = QGuiApplication::screens();
  const bool present = number_ > 0 && number_ < screens.size();
  return (present ? screens[number_] : QGuiApplication::primaryScreen())->geometry().width();
}

}  // namespace peakwright

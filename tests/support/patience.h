#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace peakwright {

constexpr int kPatience = 60'000;  // ms, longer than the busiest machine takes.

/// Waits until it holds, but not without end. Tells whether it does.
template <typename Condition>
bool WaitFor(const Condition& holds) {
  QTimer look;  // For what no event tells of.
  look.start(10);
  const QDeadlineTimer end(kPatience);
  while (!holds() && !end.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  return holds();
}

}  // namespace peakwright

#pragma once

#include <QApplication>

namespace peakwright {

/// The toolkit's application as this layer needs it: it lets no exception through the event loop,
/// knows which events are under way, paints only where there is something to paint on, and takes
/// the session's request to quit for an order.
class GuardedApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override;

 protected:
  bool event(QEvent* event) override;
};

}  // namespace peakwright

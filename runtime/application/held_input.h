#pragma once

#include <deque>
#include <functional>

#include <QObject>
#include <QPointer>

namespace peakwright {

/// What the user does while the program waits: it is kept, and happens afterwards in its order, in
/// the window where it was done. Menus can be opened meanwhile, for the sake of Quit; any other
/// command that is chosen there is kept too.
class HeldInput : public QObject {
 public:
  /// Begins and ends a wait. After the last one's end the event loop lets go of what was kept.
  void Hold();
  void Release();
  bool IsHolding() const { return isHolding_; }

  /// Adds a step to what is kept. It is left out if `receiver` is gone by then.
  void Keep(QObject& receiver, std::function<void()> step);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Step {
    QPointer<QObject> Receiver;
    std::function<void()> Take;
    bool IsDrag;  // A mouse move with a button down: only the last of several in a row counts.
  };

  void KeepEvent(QObject& receiver, const QEvent& event);
  void LetGo();

  std::deque<Step> kept_;
  int waits_ = 0;
  bool isHolding_ = false;  // Until the first kept step is about to happen.
};

/// The program waits as long as one of these exists. Ending the program ends the wait.
class Waiting {
 public:
  Waiting();
  Waiting(const Waiting&) = delete;
  Waiting& operator=(const Waiting&) = delete;
  ~Waiting();
};

}  // namespace peakwright

#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class QKeyEvent;
class QMenu;

namespace peakwright {

class DesktopMenuBar;

/// What keys mean for the menu bar wherever the focus is, in a panel too: F10 opens it, a command's
/// key is the command's, undo, redo and page keys reach the results, and Alt with a letter types
/// nothing.
class MenuKeys : public QObject {
 public:
  explicit MenuKeys(const DesktopMenuBar& bar) : bar_(bar) {}

  /// Closing this menu gives the focus back to what had it, instead of leaving it in the bar.
  void Follow(QMenu& menu);

  bool eventFilter(QObject*, QEvent* event) override;

 private:
  bool Acts(const QKeyEvent& event) const;
  void LeaveBar();

  const DesktopMenuBar& bar_;
  QPointer<QWidget> focused_;   // In the bar's window, before a menu opened.
  bool hasJustClosed_ = false;  // A menu, in the event under way: another may follow it.
};

}  // namespace peakwright

#pragma once

#include <functional>

class QAction;
class QMenu;
class QMenuBar;
class QObject;
class QWidget;

namespace peakwright {

class DesktopMenuBar;
class DesktopMenuItem;
class DesktopUIControl;
class DesktopWindow;
class HeldInput;

/// What lies behind this layer's objects, for the layer itself and for tests: handlers never see
/// it. Each is defined beside the object that it is about.
struct ToolkitSide {
  static QWidget* Of(const DesktopUIControl& control);
  static QWidget* Of(const DesktopWindow& window);
  static QMenuBar* Of(const DesktopMenuBar& bar);
  /// The action of an item.
  static QAction* Of(const DesktopMenuItem& item);
  /// The menu of a title.
  static QMenu& MenuOf(DesktopMenuItem& title);
  /// The parent of a window's controls.
  static QWidget* ContentOf(const DesktopWindow& window);
  /// The window that floating windows and boxes stay above, or null before it is made.
  static QWidget* DocumentWindow();
  static void DocumentWindow(QWidget* window);

  /// What the user does while the program waits.
  static HeldInput& Input();
  /// Calls the handler of something that the user did to `control`: at once, or in its turn after
  /// the program has waited, if the control still exists then.
  static void RaiseInTurn(QObject& control, std::function<void()> handler);
};

}  // namespace peakwright

#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "runtime/desktop_application.h"
#include "runtime/layout.h"

class QWidget;

namespace peakwright {

class DesktopMenuBar;

/// A window on the screen. A window is made hidden; opening it raises Event_Opening and then shows
/// it if its layout says so.
class DesktopWindow : public ImplicitInstance {
 public:
  DesktopWindow(const DesktopWindow&) = delete;
  DesktopWindow& operator=(const DesktopWindow&) = delete;
  ~DesktopWindow() override;

  int Left() const;  ///< Of the frame, from the left edge of the main display, pixels at 100 %.
  void Left(int pixels);
  int Top() const;  ///< Of the frame, from the top of the main display.
  void Top(int pixels);
  int Width() const;   ///< Of the content, pixels at 100 %.
  int Height() const;  ///< Of the content.

  /// Brings the window on screen and to the front, and gives the focus to its first control.
  void Show();
  /// Takes the window off the screen; from the front it gives way to the one that it was shown
  /// from.
  void Hide();
  /// Takes the window off the screen for good; the next reference to it makes a new one. Safe to
  /// call from a handler of the window itself.
  void Close();

  DesktopMenuBar* MenuBar() const { return menuBar_; }
  void MenuBar(DesktopMenuBar& bar);
  /// Binds `action` to the menu item of that name in this window's menu bar.
  void AddMenuHandler(std::string_view name, std::function<bool()> action);

  /// Has assistive tools speak `text` once. Nothing is shown.
  void Announce(std::string_view text);

  void Open() final;

 protected:
  explicit DesktopWindow(const WindowLayout& layout);

  virtual void Event_Opening() {}
  /// Raised after each change of the content's size, but not at opening.
  virtual void Event_Resized() {}
  /// Raised by Close. The object may live on for as long as a menu or a dialog is open.
  virtual void Event_Closing() {}

 private:
  friend class DesktopButton;
  friend class DesktopUIControl;
  friend struct ToolkitSide;
  class NativeWindow;

  QWidget* Native() const;
  QWidget* Content() const;
  void AddToTabOrder(QWidget& widget, int tabIndex);
  void LockToBottom(QWidget& widget);
  /// The buttons that Return and Escape press.
  void DefaultButton(QWidget& button);
  void CancelButton(QWidget& button);

  std::unique_ptr<NativeWindow> native_;
  DesktopMenuBar* menuBar_ = nullptr;
  bool visibleAtOpening_;
};

}  // namespace peakwright

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/desktop_application.h"

class QAction;
class QKeySequence;
class QMenu;
class QMenuBar;

namespace peakwright {

class MenuKeys;

/// One item of a menu, or a menu title with items of its own.
class DesktopMenuItem {
 public:
  DesktopMenuItem();
  DesktopMenuItem(const DesktopMenuItem&) = delete;
  DesktopMenuItem& operator=(const DesktopMenuItem&) = delete;
  virtual ~DesktopMenuItem();

  const std::string& Name() const { return name_; }
  /// The names EditUndo, EditCut, EditCopy and EditPaste make the item act on the text control
  /// that has the focus.
  void Name(std::string_view name);
  /// "-" makes a separator line. Alt with the letter `mnemonic` of the text opens or chooses it.
  void Text(std::string_view text, char mnemonic = '\0');
  void Visible(bool visible);
  void Shortcut(std::string_view shortcut);  ///< As "Cmd+P": Command on macOS, Ctrl elsewhere.
  void AutoEnabled(bool enabled);            ///< On: enabled while a handler is bound.
  bool HasCheckMark() const { return marked_; }
  void HasCheckMark(bool marked);

  void AddItem(std::unique_ptr<DesktopMenuItem> item);
  DesktopMenuItem* Child(std::string_view name) const;   ///< A direct child, or null.
  DesktopMenuItem* Lookup(std::string_view name) const;  ///< Any item below, or null.

  void Handler(std::function<bool()> action);

 private:
  friend class DesktopMenuBar;
  friend class DesktopQuitMenuItem;
  friend struct ToolkitSide;

  /// Whether these keys stand for this item or one below.
  bool HasCommand(const QKeySequence& keys) const;
  /// The toolkit's menu of a title; made at the first call.
  QMenu& NativeMenu();
  /// Makes this one of the platform's own commands, enabled as the menu opens if it can act.
  void StandardCommand(std::function<bool()> canAct, std::function<void()> act);

  void NativeTitle();

  std::string name_;
  bool autoEnabled_ = false;
  bool marked_ = false;
  std::function<bool()> handler_;
  std::function<bool()> canAct_;
  std::unique_ptr<QMenu> menu_;
  std::unique_ptr<QAction> action_;
  std::vector<std::unique_ptr<DesktopMenuItem>> children_;
};

/// The item that the platform takes for its quit command.
class DesktopQuitMenuItem : public DesktopMenuItem {
 public:
  DesktopQuitMenuItem();
};

/// A bar of menus.
class DesktopMenuBar : public ImplicitInstance {
 public:
  DesktopMenuBar();
  DesktopMenuBar(const DesktopMenuBar&) = delete;
  DesktopMenuBar& operator=(const DesktopMenuBar&) = delete;
  ~DesktopMenuBar() override;

  void AddMenu(std::unique_ptr<DesktopMenuItem> title);
  DesktopMenuItem* Child(std::string_view name) const;   ///< A menu title, or null.
  DesktopMenuItem* Lookup(std::string_view name) const;  ///< Any item of the bar, or null.

 private:
  friend class MenuKeys;
  friend struct ToolkitSide;

  /// Whether these keys stand for an item.
  bool HasCommand(const QKeySequence& keys) const;

  std::vector<std::unique_ptr<DesktopMenuItem>> titles_;
  std::unique_ptr<QMenuBar> bar_;
  std::unique_ptr<MenuKeys> keys_;
};

}  // namespace peakwright

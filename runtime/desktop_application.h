#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <typeindex>
#include <utility>
#include <vector>

class QApplication;
class QMessageBox;
class QWidget;

namespace peakwright {

class DesktopMenuBar;
class HeldInput;

/// An object of which the application keeps one, made at the first reference to it.
class ImplicitInstance {
 public:
  virtual ~ImplicitInstance() = default;
  /// Called once, when every further reference already gets this object.
  virtual void Open() {}
};

/// What the application is called, for the window system and the session.
struct ApplicationIdentity {
  std::string_view Name;
  std::string_view Program;  ///< Of the executable, its desktop entry and its icon.
  std::string_view Version;
};

/// The application: its start, its event loop, its end, and the owner of all implicit instances.
class DesktopApplication {
 public:
  DesktopApplication(int& argc, char** argv, const ApplicationIdentity& identity = {});
  DesktopApplication(const DesktopApplication&) = delete;
  DesktopApplication& operator=(const DesktopApplication&) = delete;
  virtual ~DesktopApplication();

  /// The running application; there is exactly one while any window exists.
  static DesktopApplication& Current();

  /// Starts the program, runs it until the user quits, and gives its exit status.
  int Run();
  /// Raises Event_Opening and makes the default view, without the event loop.
  void Start();
  /// Ends the event loop.
  void Quit(int code);

  DesktopMenuBar* MenuBar() const { return menuBar_; }
  void MenuBar(DesktopMenuBar& bar) { menuBar_ = &bar; }

  /// Calls an event handler. What it throws is shown to the user, and the program goes on.
  void Raise(const std::function<void()>& handler);
  /// The one `Instance`, made of the arguments and opened at the first call.
  template <class Instance, class... Arguments>
  Instance& Implicit(Arguments&&... arguments) {
    const std::type_index type = typeid(Instance);
    if (ImplicitInstance* present = Find(type)) return static_cast<Instance&>(*present);
    auto made = std::make_unique<Instance>(std::forward<Arguments>(arguments)...);
    Instance& instance = *made;
    instances_.emplace_back(type, std::move(made));
    instance.Open();
    return instance;
  }

  /// Gives up an instance: no reference finds it any more, and it ends when the last handler and
  /// the last event of the toolkit that are under way have returned.
  void Release(const ImplicitInstance& instance);

 protected:
  virtual void Event_Opening() {}
  /// Opens the window that comes up by itself.
  virtual void MakeDefaultView() {}
  /// Shows the text of an exception that no handler took, and returns at once. A test may listen
  /// in instead.
  virtual void UnhandledException(const std::string& what);

 private:
  friend class GuardedApplication;
  friend struct ToolkitSide;
  class Running;

  ImplicitInstance* Find(std::type_index type) const;
  void EndReleased();
  /// Makes the box that shows exceptions and keeps memory back for its use, as later there may be
  /// none.
  void PrepareToTell();
  void Tell(const std::exception_ptr& caught);

  std::unique_ptr<QApplication> toolkit_;  // Empty where the process has one already.
  std::unique_ptr<HeldInput> input_;
  std::unique_ptr<QMessageBox> exceptions_;  // The box that shows them.
  std::unique_ptr<char[]> reserve_;          // Memory kept back for it, until it shows one.
  std::vector<std::pair<std::type_index, std::unique_ptr<ImplicitInstance>>> instances_;
  std::vector<std::unique_ptr<ImplicitInstance>> ending_;  // Released, maybe under way still.
  DesktopMenuBar* menuBar_ = nullptr;
  QWidget* documentWindow_ = nullptr;  // The one that all others stay above.
};

}  // namespace peakwright

#include "runtime/desktop_application.h"

#include <algorithm>
#include <cassert>
#include <csignal>
#include <new>

#include <QBackingStore>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QThread>
#include <QWidget>

#include "runtime/appearance/outlined_style.h"
#include "runtime/appearance/system_appearance.h"
#include "runtime/application/guarded_application.h"
#include "runtime/application/held_input.h"
#include "runtime/application/toolkit_side.h"
#include "runtime/speech/accessible_text_area.h"
#include "runtime/speech/accessible_text_field.h"
#include "runtime/speech/toolkit_messages.h"
#include "runtime/text/toolkit_strings.h"

namespace peakwright {
namespace {

DesktopApplication* current = nullptr;
int running = 0;  // Handlers and events of the toolkit that are on the stack.

std::string Describe(const std::exception_ptr& caught) {
  try {
    std::rethrow_exception(caught);
  } catch (const std::bad_alloc&) {
    return "There is not enough memory for it.";
  } catch (const std::exception& error) {
    return error.what();
  } catch (...) {
    return "unknown error";
  }
}

/// Where the memory doesn't suffice for the picture of a window, the toolkit says nothing and
/// paints on none, which ends the program.
bool HasPicture(const QWidget& painted) {
  QBackingStore* store = painted.backingStore();
  const QPaintDevice* picture = store != nullptr ? store->paintDevice() : nullptr;
  return picture == nullptr || picture->devType() != QInternal::Image || picture->width() > 0;
}

}  // namespace

/// One handler or event of the toolkit, from its call to its return.
class DesktopApplication::Running {
 public:
  Running() { ++running; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
  ~Running() {
    if (--running == 0 && current != nullptr) current->EndReleased();
  }
};

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
  // Threads of the toolkit's own come by here too.
  if (QThread::currentThread() != thread()) return QApplication::notify(receiver, event);
  if (event->type() == QEvent::Paint && receiver->isWidgetType() &&
      !HasPicture(static_cast<QWidget&>(*receiver))) {
    return true;
  }
  const DesktopApplication::Running underWay;
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    if (current == nullptr) throw;
    current->Tell(std::current_exception());
    return false;
  }
}

bool GuardedApplication::event(QEvent* event) {
  // The toolkit would ask each window to close, and take one that stays for an objection.
  if (event->type() == QEvent::Quit) {
    exit(0);
    return true;
  }
  return QApplication::event(event);
}

DesktopApplication::DesktopApplication(int& argc, char** argv,
                                       const ApplicationIdentity& identity) {
  assert(current == nullptr);
  current = this;
  if (QCoreApplication::instance() == nullptr) {
    toolkit_ = std::make_unique<GuardedApplication>(argc, argv);
  }
  QGuiApplication::setQuitOnLastWindowClosed(false);
  // Not as the display name, which the toolkit would add to the title of every window.
  QGuiApplication::setApplicationName(ToQString(identity.Name));
  QGuiApplication::setApplicationVersion(ToQString(identity.Version));
  QGuiApplication::setDesktopFileName(ToQString(identity.Program));
  QGuiApplication::setWindowIcon(QIcon::fromTheme(ToQString(identity.Program)));
  FollowSystemAppearance();
  OutlineControls();
  SilenceAssistiveMessages();
  InstallAccessibleTextArea();
  InstallAccessibleTextField();
  input_ = std::make_unique<HeldInput>();
#ifdef SIGXFSZ
  std::signal(SIGXFSZ, SIG_IGN);  // A file that may not grow further is told as on a full disk.
#endif
}

DesktopApplication::~DesktopApplication() {
  exceptions_.reset();  // Before its parent, the document window.
  ending_.clear();
  // The youngest goes first: floating windows hang on the document window.
  while (!instances_.empty()) instances_.pop_back();
  input_.reset();
  current = nullptr;
  toolkit_.reset();
}

DesktopApplication& DesktopApplication::Current() {
  assert(current != nullptr);
  return *current;
}

void DesktopApplication::Start() {
  Raise([this] { Event_Opening(); });
  Raise([this] { MakeDefaultView(); });
  PrepareToTell();
}

int DesktopApplication::Run() {
  Start();
  return QCoreApplication::exec();
}

void DesktopApplication::Quit(int code) { QCoreApplication::exit(code); }

void DesktopApplication::Raise(const std::function<void()>& handler) {
  const Running call;
  try {
    if (handler) handler();
  } catch (...) {
    Tell(std::current_exception());
  }
}

void DesktopApplication::PrepareToTell() {
  constexpr std::size_t kReserve = 8 << 20;  // Memory that isn't used isn't taken from the system.
  exceptions_ =
      std::make_unique<QMessageBox>(QMessageBox::Warning, QApplication::applicationName(),
                                    QStringLiteral("The last command could not be completed."),
                                    QMessageBox::Ok, ToolkitSide::DocumentWindow());
  const auto keep = [this] { reserve_.reset(new (std::nothrow) char[kReserve]); };
  QObject::connect(exceptions_.get(), &QDialog::finished, keep);
  keep();
}

void DesktopApplication::Tell(const std::exception_ptr& caught) {
  reserve_.reset();
  try {
    UnhandledException(Describe(caught));
  } catch (const std::bad_alloc&) {
    // There is no memory even for words; the program goes on.
  }
}

void DesktopApplication::UnhandledException(const std::string& what) {
  QString text = QString::fromStdString(what);
  if (exceptions_ == nullptr) PrepareToTell();
  if (exceptions_->isVisible()) {
    const QString shown = exceptions_->informativeText();
    if (shown.contains(text)) return;
    text = shown + u'\n' + text;
  }
  exceptions_->setInformativeText(text);
  // The box's own format is that of its headline.
  for (QLabel* label : exceptions_->findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
  exceptions_->show();
}

void DesktopApplication::Release(const ImplicitInstance& instance) {
  const Running call;
  const auto found = std::find_if(instances_.begin(), instances_.end(), [&](const auto& entry) {
    return entry.second.get() == &instance;
  });
  if (found == instances_.end()) return;
  ending_.push_back(std::move(found->second));
  instances_.erase(found);
}

void DesktopApplication::EndReleased() {
  if (ending_.empty()) return;
  // What handed the last event to its receiver may yet look at it.
  QMetaObject::invokeMethod(
      input_.get(),
      [this] {
        if (running <= 1) ending_.clear();  // This call is an event, too.
      },
      Qt::QueuedConnection);
}

ImplicitInstance* DesktopApplication::Find(std::type_index type) const {
  for (const auto& [present, instance] : instances_) {
    if (present == type) return instance.get();
  }
  return nullptr;
}

}  // namespace peakwright

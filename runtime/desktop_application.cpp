#include "runtime/desktop_application.h"

#include <algorithm>
#include <cassert>

#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <QTimer>

#include "runtime/appearance.h"
#include "runtime/caption_text.h"
#include "runtime/desktop_menu.h"

namespace peakwright {
namespace {

DesktopApplication* current = nullptr;

std::string Describe(const std::exception_ptr& caught) {
  try {
    std::rethrow_exception(caught);
  } catch (const std::exception& error) {
    return error.what();
  } catch (...) {
    return "unknown error";
  }
}

/// The toolkit's application, which lets no exception through the event loop.
class GuardedApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    bool handled = false;
    current->Raise([&] { handled = QApplication::notify(receiver, event); });
    return handled;
  }
};

}  // namespace

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
}

DesktopApplication::~DesktopApplication() {
  ending_.clear();
  // The youngest goes first: floating windows hang on the document window.
  while (!instances_.empty()) instances_.pop_back();
  toolkit_.reset();
  current = nullptr;
}

DesktopApplication& DesktopApplication::Current() {
  assert(current != nullptr);
  return *current;
}

void DesktopApplication::Start(const std::function<void()>& lateStartup) {
  Raise([this] { Event_Opening(); });
  Raise(lateStartup);
}

int DesktopApplication::Run(const std::function<void()>& lateStartup) {
  Start(lateStartup);
  return QCoreApplication::exec();
}

void DesktopApplication::Quit(int code) { QCoreApplication::exit(code); }

void DesktopApplication::Raise(const std::function<void()>& handler) {
  try {
    if (handler) handler();
  } catch (...) {
    UnhandledException(Describe(std::current_exception()));
  }
}

void DesktopApplication::UnhandledException(const std::string& what) {
  auto box =
      std::make_unique<QMessageBox>(QMessageBox::Warning, QApplication::applicationName(),
                                    QStringLiteral("The last command could not be completed."),
                                    QMessageBox::Ok, QApplication::activeWindow());
  box->setTextFormat(Qt::PlainText);
  box->setInformativeText(QString::fromStdString(what));
  box->exec();
}

void DesktopApplication::Release(const ImplicitInstance& instance) {
  const auto found = std::find_if(instances_.begin(), instances_.end(), [&](const auto& entry) {
    return entry.second.get() == &instance;
  });
  if (found == instances_.end()) return;
  // The caller may be one of the instance's own handlers: let it return first.
  ending_.push_back(std::move(found->second));
  instances_.erase(found);
  QTimer::singleShot(0, QCoreApplication::instance(), [] {
    if (current != nullptr) current->ending_.clear();
  });
}

ImplicitInstance* DesktopApplication::Find(std::type_index type) const {
  for (const auto& [present, instance] : instances_) {
    if (present == type) return instance.get();
  }
  return nullptr;
}

}  // namespace peakwright

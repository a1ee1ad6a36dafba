#include "runtime/speech/announcement.h"

#include <chrono>
#include <memory>

#include <QAccessible>
#include <QAccessibleObject>
#include <QGuiApplication>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include "runtime/text/toolkit_strings.h"

namespace peakwright {

#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)

namespace {

void Send(QWidget& window, const QString& text) {
  QAccessibleAnnouncementEvent event(&window, text);
  QAccessible::updateAccessibility(&event);
}

}  // namespace

#else

namespace {

/// A notification without a face, of which screen readers speak the name as it appears.
class Notification : public QAccessibleObject {
 public:
  Notification(QObject& object, const QString& text) : QAccessibleObject(&object), text_(text) {}

  QAccessible::Role role() const override { return QAccessible::Notification; }
  QAccessible::State state() const override { return {}; }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? text_ : QString();
  }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(object()->parent());
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

 private:
  QString text_;
};

/// Before 6.8 the toolkit has no announcements; a notification that appears is its way.
void Send(QWidget& window, const QString& text) {
  const QString kind = QStringLiteral("notification");
  const std::unique_ptr<QObject> former(
      window.findChild<QObject*>(kind, Qt::FindDirectChildrenOnly));
  auto* object = new QObject(&window);
  object->setObjectName(kind);
  QAccessible::registerAccessibleInterface(new Notification(*object, text));
  QAccessibleEvent shown(object, QAccessible::ObjectShow);
  QAccessible::updateAccessibility(&shown);
}

}  // namespace

#endif

void Announce(QWidget& window, std::string_view text) {
  if (!QAccessible::isActive()) return;
  const QString words = ToQString(text).simplified();
  if (window.isActiveWindow()) {
    Send(window, words);
    return;
  }
  // What a screen reader says of a window that comes forward would cut the words short.
  constexpr auto kLongestWait = std::chrono::milliseconds(300);
  auto* wait = new QTimer(&window);
  wait->setSingleShot(true);
  QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, wait, [wait](QWindow* front) {
    if (front != nullptr) wait->start(0);
  });
  QObject::connect(wait, &QTimer::timeout, &window, [&window, wait, words] {
    Send(window, words);
    wait->deleteLater();
  });
  wait->start(kLongestWait);
}

}  // namespace peakwright

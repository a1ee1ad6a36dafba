#include "runtime/appearance/system_appearance.h"

#include <QtGlobal>
// From 6.5 on the toolkit itself asks.
#if QT_VERSION < QT_VERSION_CHECK(6, 5, 0) && defined(Q_OS_LINUX)
#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#elif QT_VERSION < QT_VERSION_CHECK(6, 5, 0) && defined(Q_OS_WIN)
#include <QApplication>
#include <QSettings>
#endif

#include "runtime/appearance/appearance.h"
#include "runtime/color.h"

namespace peakwright {

#if QT_VERSION < QT_VERSION_CHECK(6, 5, 0) && defined(Q_OS_LINUX)
void FollowSystemAppearance() {
  // Where no bus runs, none is started for this.
  if (!qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")) return;
  QDBusMessage question = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.portal.Desktop"),
      QStringLiteral("/org/freedesktop/portal/desktop"),
      QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"));
  question << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme");
  constexpr int kPortalTimeout = 1000;  // ms; nothing waits for the answer.
  const QDBusPendingCall call = QDBusConnection::sessionBus().asyncCall(question, kPortalTimeout);
  auto* watcher = new QDBusPendingCallWatcher(call, qApp);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, qApp, [watcher] {
    const QDBusPendingReply<QDBusVariant> reply = *watcher;
    watcher->deleteLater();
    if (reply.isError()) return;
    QVariant scheme = reply.value().variant();
    if (scheme.canConvert<QDBusVariant>()) scheme = scheme.value<QDBusVariant>().variant();
    constexpr uint kPrefersDark = 1;
    if (scheme.toUInt() == kPrefersDark && !Color::IsDarkMode()) ShowAppearance(true);
  });
}
#elif QT_VERSION < QT_VERSION_CHECK(6, 5, 0) && defined(Q_OS_WIN)
void FollowSystemAppearance() {
  const QSettings wanted(
      QStringLiteral(R"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Themes)"
                     R"(\Personalize)"),
      QSettings::NativeFormat);
  if (wanted.value(QStringLiteral("AppsUseLightTheme"), 1).toInt() != 0) return;
  QApplication::setStyle(
      QStringLiteral("Fusion"));  // The system's own style knows no dark buttons.
  ShowAppearance(true);
}
#else
void FollowSystemAppearance() {}
#endif

}  // namespace peakwright

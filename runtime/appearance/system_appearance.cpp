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
#include <string_view>
#include <windows.h>

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QStyle>
#include <QTimer>
#endif

#include "runtime/appearance/appearance.h"
#include "runtime/appearance/outlined_style.h"
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
namespace {

/// Whether the system asks its programs to be dark. The question leaves nothing in the registry.
bool SystemIsDark() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof(contrast);
  const bool asked =
      SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0) != 0;
  if (asked && (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0) return false;
  DWORD light = 1;
  DWORD size = sizeof(light);
  RegGetValueW(HKEY_CURRENT_USER,
               LR"(Software\Microsoft\Windows\CurrentVersion\Themes\Personalize)",
               L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &light, &size);
  return light == 0;
}

/// Shows what the system asks for, at start-up and after each change.
class AppearanceWatch : public QAbstractNativeEventFilter {
 public:
  AppearanceWatch() : systemStyle_(QApplication::style()->name()) { Follow(); }

  bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override {
    const MSG& received = *static_cast<const MSG*>(message);
    const auto* what = reinterpret_cast<const wchar_t*>(received.lParam);
    if (received.message == WM_SETTINGCHANGE && what != nullptr &&
        std::wstring_view(what) == L"ImmersiveColorSet") {
      // Once the toolkit knows it too: with the palette it then changes the title bars.
      QTimer::singleShot(0, QCoreApplication::instance(), [this] { Follow(); });
    }
    return false;
  }

 private:
  void Follow() {
    const bool dark = SystemIsDark();
    if (dark == dark_) return;
    dark_ = dark;
    // The system's own style knows no dark buttons.
    QApplication::setStyle(dark ? QStringLiteral("fusion") : systemStyle_);
    OutlineControls();
    ShowAppearance(dark);
  }

  QString systemStyle_;
  bool dark_ = false;
};

}  // namespace

void FollowSystemAppearance() {
  static AppearanceWatch watch;
  QCoreApplication::instance()->installNativeEventFilter(&watch);
}
#else
void FollowSystemAppearance() {}
#endif

}  // namespace peakwright

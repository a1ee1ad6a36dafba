#include "runtime/transfers/origin_mark.h"

#if defined(__linux__) || defined(__APPLE__)
#include <sys/xattr.h>
#endif

#include <QDateTime>
#include <QFile>

namespace peakwright {

void MarkOrigin(const FolderItem& file, const QUrl& origin) {
  const QUrl shown = origin.adjusted(QUrl::RemoveUserInfo | QUrl::RemoveFragment);
  [[maybe_unused]] const QByteArray url = shown.toEncoded();
  [[maybe_unused]] const QByteArray path =
      QFile::encodeName(QString::fromStdString(file.NativePath()));
#if defined(__linux__)
  setxattr(path.constData(), "user.xdg.origin.url", url.constData(),
           static_cast<std::size_t>(url.size()), 0);
#elif defined(__APPLE__)
  // Flags (downloaded, not yet opened), the time in hexadecimal seconds, and by which program.
  const QByteArray mark =
      "0081;" + QByteArray::number(QDateTime::currentSecsSinceEpoch(), 16) + ";Peakwright;";
  setxattr(path.constData(), "com.apple.quarantine", mark.constData(),
           static_cast<std::size_t>(mark.size()), 0, 0);
#elif defined(_WIN32)
  constexpr auto kInternet = "3";
  QFile zone(QString::fromStdString(file.NativePath()) + QStringLiteral(":Zone.Identifier"));
  if (!zone.open(QIODevice::WriteOnly)) return;
  zone.write(QByteArray("[ZoneTransfer]\r\nZoneId=") + kInternet + "\r\nHostUrl=" + url + "\r\n");
#endif
}

}  // namespace peakwright

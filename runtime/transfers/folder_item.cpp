#include "runtime/folder_item.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QUrl>

#include "runtime/text/toolkit_strings.h"

namespace peakwright {

FolderItem FolderItem::Child(std::string_view name) const {
  return FolderItem(QDir(ToQString(nativePath_)).filePath(ToQString(name)).toStdString());
}

void FolderItem::Open(bool /*activate*/) const {
  QDesktopServices::openUrl(QUrl::fromLocalFile(ToQString(nativePath_)));
}

FolderItem SpecialFolder::Desktop() {
  // Without a home the toolkit's path has two slashes in front, which in an address name a host.
  const QString path =
      QDir::cleanPath(QStandardPaths::writableLocation(QStandardPaths::DesktopLocation));
  if (!QFile::exists(path) && QDir().mkpath(path)) {
    QFile::setPermissions(path, QFile::permissions(path) | QFileDevice::ReadOwner |
                                    QFileDevice::WriteOwner | QFileDevice::ExeOwner);
  }
  return FolderItem(path.toStdString());
}

}  // namespace peakwright

#include "runtime/folder_item.h"

#include <QDesktopServices>
#include <QDir>
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
  const QString path = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
  QDir().mkpath(path);
  return FolderItem(path.toStdString());
}

}  // namespace peakwright

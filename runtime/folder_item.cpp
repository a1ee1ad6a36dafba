#include "runtime/folder_item.h"

#include <QDesktopServices>
#include <QDir>
#include <QStandardPaths>
#include <QUrl>

#include "runtime/caption_text.h"

namespace peakwright {
namespace {

FolderItem::Opener& OtherOpener() {
  static FolderItem::Opener opener;
  return opener;
}

}  // namespace

FolderItem FolderItem::Child(std::string_view name) const {
  return FolderItem(QDir(ToQString(nativePath_)).filePath(ToQString(name)).toStdString());
}

void FolderItem::Open(bool activate) const {
  if (OtherOpener()) {
    OtherOpener()(*this, activate);
  } else {
    QDesktopServices::openUrl(QUrl::fromLocalFile(ToQString(nativePath_)));
  }
}

void FolderItem::OpenWith(Opener opener) { OtherOpener() = std::move(opener); }

FolderItem SpecialFolder::Desktop() {
  const QString path = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
  QDir().mkpath(path);
  return FolderItem(path.toStdString());
}

}  // namespace peakwright

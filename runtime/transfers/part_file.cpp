#include "runtime/transfers/part_file.h"

#include <cstdint>
#include <filesystem>
#include <system_error>

#if __has_include(<sys/file.h>)
#include <sys/file.h>
#endif

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "runtime/text/toolkit_strings.h"

namespace peakwright {
namespace {

constexpr QFileDevice::Permissions kExecutable =
    QFileDevice::ExeOwner | QFileDevice::ExeUser | QFileDevice::ExeGroup | QFileDevice::ExeOther;
constexpr QFileDevice::Permissions kOfUser = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

std::filesystem::path ToPath(const QString& name) { return {name.toStdU16String()}; }

/// Keeps other programs from taking the file for a leftover, as long as it is open. Where there are
/// no such locks, an open file can't be removed.
bool Lock(const QFileDevice& file) {
#ifdef LOCK_EX
  return flock(file.handle(), LOCK_EX | LOCK_NB) == 0;
#else
  return file.isOpen();
#endif
}

/// Removes what the toolkit wrote under that name with six letters behind it, but what is written
/// just now.
void RemoveLeftovers(const QString& name) {
  const QFileInfo part(name);
  const QDir folder = part.dir();
  for (const QString& each : folder.entryList({part.fileName() + ".??????"}, QDir::Files)) {
    QFile file(folder.filePath(each));
    if (file.open(QIODevice::ReadOnly) && Lock(file)) file.remove();
  }
}

}  // namespace

PartFile::PartFile(const FolderItem& target)
    : target_(ToQString(target.NativePath())), part_(target_ + QStringLiteral(".part")) {}

bool PartFile::Open() {
  RemoveLeftovers(part_.fileName());
  // With a buffer in between the toolkit loses the reason for a failure.
  const bool isOpen = part_.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
  if (isOpen) Lock(part_);
  return isOpen;
}

bool PartFile::Write(std::string_view data) {
  while (!data.empty()) {  // A disk that is nearly full takes some and gives its reason next.
    const qint64 written = part_.write(data.data(), static_cast<qint64>(data.size()));
    if (written <= 0) return false;
    data.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool PartFile::Commit() {
  const QFileInfo older(target_);
  const QFileDevice::Permissions permissions =
      older.exists() ? older.permissions() : part_.permissions();
  part_.setPermissions((permissions & ~kExecutable) | kOfUser);
  if (!part_.commit()) return false;
  std::error_code error;
  std::filesystem::rename(ToPath(part_.fileName()), ToPath(target_), error);
  if (!error) return true;
  QFile::remove(part_.fileName());
  problem_ = error.message();
  return false;
}

bool PartFile::HasRoomFor(std::int64_t bytes) const {
  std::error_code unknown;  // Then there is all the room in the world.
  const std::filesystem::path folder = ToPath(QFileInfo(target_).path());
  return static_cast<std::uintmax_t>(bytes) <= std::filesystem::space(folder, unknown).available;
}

std::string PartFile::Problem() const {
  return problem_.empty() ? part_.errorString().toStdString() : problem_;
}

}  // namespace peakwright

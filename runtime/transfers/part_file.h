#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <QSaveFile>
#include <QString>

#include "runtime/folder_item.h"

namespace peakwright {

/// What is to take the place of `target` once it is whole. Until then it stands beside it, without
/// a name where the file system can, and goes away if it is never committed.
class PartFile {
 public:
  explicit PartFile(const FolderItem& target);

  // Each tells whether it worked; if not, Problem() has the system's reason.
  /// Also removes what was left beside the target by programs that were killed.
  bool Open();
  bool Write(std::string_view data);
  /// The user reads and writes the new file, nobody executes it; other permissions are those of the
  /// older one.
  bool Commit();

  bool HasRoomFor(std::int64_t bytes) const;
  std::string Problem() const;

 private:
  QString target_;
  QSaveFile part_;
  std::string problem_;  // Of the last step.
};

}  // namespace peakwright

#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace peakwright {

/// A place in the file system, whether something is there or not.
class FolderItem {
 public:
  explicit FolderItem(std::string nativePath) : nativePath_(std::move(nativePath)) {}

  const std::string& NativePath() const { return nativePath_; }  ///< Absolute, in UTF-8.

  /// The item of that name in this folder.
  FolderItem Child(std::string_view name) const;

  /// Has the system open the file with its default application, in front if `activate`, as far as
  /// the system leaves that to its callers. A file without an application stays unopened.
  void Open(bool activate) const;

 private:
  std::string nativePath_;
};

/// The folders that the system keeps for the user.
class SpecialFolder {
 public:
  /// The user's desktop. It is made where there is none yet.
  static FolderItem Desktop();
};

}  // namespace peakwright

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "runtime/text_range.h"

namespace peakwright {

/// Bytes; what is longer is no version file.
constexpr std::size_t kLongestVersionFile = std::size_t{64} * 1024;

struct VersionResult {
  std::string text;             ///< For the user.
  bool offersDownload = false;  ///< Whether the server holds a newer version.
  TextRange reply = {};         ///< The server's words within the text.
};

/// Compares the server's version with the running one. Versions are texts: they are compared byte
/// by byte from the left, case counts, and no number is parsed. `reply` is the body of the version
/// file as it arrived, and isn't looked at without a connection. `cr` ends the lines of the text.
/// `isDarkMode` is asked only if the versions are equal.
VersionResult EvaluateVersionReply(bool isConnected, std::string_view reply,
                                   std::string_view version, std::string_view cr,
                                   const std::function<bool()>& isDarkMode);

/// What the user reads when the server couldn't be reached.
std::string NoConnectionText(std::string_view cr);

/// What the user reads when the archive couldn't be stored, for the reason that the system gives.
std::string NotSavedText(std::string_view reason, std::string_view cr);

}  // namespace peakwright

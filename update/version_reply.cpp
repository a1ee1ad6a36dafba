#include "update/version_reply.h"

#include <initializer_list>

namespace peakwright {
namespace {

std::string Join(std::initializer_list<std::string_view> pieces) {
  std::string text;
  for (const std::string_view piece : pieces) text += piece;
  return text;
}

}  // namespace

std::string NoConnectionText(std::string_view cr) {
  return Join({"Web connection was unsuccessful.", cr,
               "Please check network or use a browser to access link."});
}

std::string NotSavedText(std::string_view reason, std::string_view cr) {
  return Join({"The archive could not be saved to the desktop.", cr, "Reason: ", reason, "."});
}

VersionResult EvaluateVersionReply(bool isConnected, std::string_view reply,
                                   std::string_view version, std::string_view cr,
                                   const std::function<bool()>& isDarkMode) {
  if (!isConnected) return {NoConnectionText(cr)};
  // A server without the file answers with a page, and pages have tags.
  if (reply.size() > kLongestVersionFile || reply.find('<') != std::string_view::npos) {
    return {Join(
        {"There is a problem with the update link.", cr, "Please use a browser to access link."})};
  }
  const int order = reply.compare(version);
  if (order > 0) {
    const std::string before = "The newest version is ";
    return {Join({before, reply, ".", cr, "You are running version ", version, ".", cr, cr,
                  "Download latest version to desktop?"}),
            true,
            {before.size(), reply.size()}};
  }
  if (order < 0) {
    const std::string before =
        Join({"You are running version ", version, cr, "which is newer than online "});
    return {Join({before, reply, "."}), false, {before.size(), reply.size()}};
  }
  std::string text = Join({"You are running version ", version, ".", cr, cr,
                           "This 64 bit version of Peakwright is up to date."});
  if (isDarkMode()) text += Join({cr, "Currently running in dark mode."});
  return {text};
}

}  // namespace peakwright

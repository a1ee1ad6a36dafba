#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "runtime/desktop_button.h"
#include "runtime/desktop_label.h"
#include "runtime/desktop_progress_bar.h"
#include "runtime/desktop_text_field.h"
#include "runtime/desktop_window.h"
#include "runtime/folder_item.h"
#include "runtime/network.h"
#include "runtime/url_connection.h"
#include "update/version_reply.h"

namespace peakwright {

/// What the update window asks of the system and of the program around it.
struct UpdateSurroundings {
  /// The left edge, in pixels, of the window beside which it opens.
  std::function<int()> AnchorLeft = {};
  std::function<bool()> IsConnected = &Network::IsConnected;
  std::function<void(const FolderItem& file)> Open = [](const auto& file) { file.Open(true); };
};

/// The window behind "Check for updates...". It checks once, as it opens, shows the result, and
/// fetches a newer version to the desktop if the user wants it.
class WindowDownload : public DesktopWindow {
 public:
  explicit WindowDownload(UpdateSurroundings surroundings = {});

  /// Brings the open window to the front, or opens one in these surroundings, which comes on screen
  /// when its check has been made.
  static void ShowIn(const UpdateSurroundings& surroundings);
  /// The open window.
  static WindowDownload& Instance();

  DesktopProgressBar ProgressBar1;  ///< Of the download; hidden until it begins.
  DesktopLabel StaticText2;         ///< "Downloading to desktop..."
  DesktopLabel StaticText1;         ///< What came of the check or the download.
  DesktopButton PushButton1;        ///< "Close", or "Later" beside an offer
  DesktopButton PushButton2;        ///< "Download"; hidden but for an offer
  DesktopLabel StaticText3;         ///< "Peakwright"
  DesktopTextField EditField1;      ///< The download location, to be copied into a browser.
  DesktopLabel Label1;              ///< The credit.

  URLConnection Checker;         ///< For the version file.
  URLConnection FileDownloader;  ///< For the archive.

 protected:
  void Event_Opening() override;
  void Event_Closing() override;

 private:
  void PushButton1_Pressed();
  void PushButton2_Pressed();
  void FileDownloader_ReceivingProgressed(std::int64_t received, std::int64_t total);
  void FileDownloader_FileReceived(const FolderItem& file);
  void FileDownloader_Error(const NetworkException& error);

  /// Shows what comes of the check; without a reply there was no connection.
  void ShowResult(const std::optional<std::string>& reply);
  void Tell(const std::string& text, TextRange reply = {});
  void ShowDownload(bool visible);

  UpdateSurroundings surroundings_;
  VersionResult result_;  // Of the check.
};

}  // namespace peakwright

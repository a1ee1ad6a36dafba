#include "update/update_window.h"

#include <chrono>
#include <utility>

#include "engine/global_strings.h"
#include "runtime/color.h"
#include "update/update_window_layout.h"

namespace peakwright {
namespace {

using namespace std::chrono_literals;
using namespace update_window_layout;

constexpr auto kCheckTimeout = 30s;     // In all.
constexpr auto kDownloadTimeout = 60s;  // Without any byte.
// The largest archive takes 9.5 hours at a megabit a second.
constexpr URLConnection::Bounds kDownloadBounds{.Time = 12h, .Bytes = std::int64_t{4} << 30};
constexpr int kStepRight = 10;  // From the anchor's left edge, pixels.

}  // namespace

WindowDownload::WindowDownload(UpdateSurroundings surroundings)
    : DesktopWindow(kWindow),
      ProgressBar1(*this, kProgress),
      StaticText2(*this, kDownloading),
      StaticText1(*this, kResult),
      PushButton1(*this, kClose),
      PushButton2(*this, kDownload),
      StaticText3(*this, kName),
      EditField1(*this, kLocation),
      Label1(*this, kCredit),
      surroundings_(std::move(surroundings)) {
  Checker.AllowCertificateValidation(false);
  FileDownloader.AllowCertificateValidation(false);

  PushButton1.Pressed = [this] { PushButton1_Pressed(); };
  PushButton2.Pressed = [this] { PushButton2_Pressed(); };
  FileDownloader.ReceivingProgressed = [this](URLConnection&, std::int64_t received,
                                              std::int64_t total, std::string_view) {
    FileDownloader_ReceivingProgressed(received, total);
  };
  FileDownloader.FileReceived = [this](URLConnection&, const std::string&, int,
                                       const FolderItem& file) {
    FileDownloader_FileReceived(file);
  };
  FileDownloader.Error = [this](URLConnection&, const NetworkException& error) {
    FileDownloader_Error(error);
  };
}

void WindowDownload::ShowIn(const UpdateSurroundings& surroundings) {
  DesktopApplication::Current().Implicit<WindowDownload>(surroundings).Show();
}

WindowDownload& WindowDownload::Instance() {
  return DesktopApplication::Current().Implicit<WindowDownload>();
}

void WindowDownload::Event_Opening() {
  EditField1.Text(Module1::websource);
  if (surroundings_.AnchorLeft) Left(surroundings_.AnchorLeft() + kStepRight);
  if (!surroundings_.IsConnected()) {
    ShowResult(std::nullopt);
    return;
  }
  Checker.SendSync("GET", Module1::websource + "peakwright_version.txt", kCheckTimeout,
                   kLongestVersionFile + 1,
                   [this](const std::optional<std::string>& reply) { ShowResult(reply); });
}

void WindowDownload::Event_Closing() {
  Checker.Disconnect();
  FileDownloader.Disconnect();
}

void WindowDownload::ShowResult(const std::optional<std::string>& reply) {
  result_ = EvaluateVersionReply(reply.has_value(), reply.value_or(""), Module1::version,
                                 Module1::CR, &Color::IsDarkMode);
  if (result_.offersDownload) {
    PushButton1.Caption("Later");
    PushButton2.Visible(true);
  }
  Tell(result_.text, result_.reply);
}

void WindowDownload::PushButton1_Pressed() { Close(); }

void WindowDownload::PushButton2_Pressed() {
  StaticText1.Text(result_.text,
                   result_.reply);  // In the place of what an earlier attempt may have left.
  ShowDownload(true);
  const std::string archive = Module1::appname + ".zip";
  FileDownloader.Send("GET", Module1::websource + archive, SpecialFolder::Desktop().Child(archive),
                      kDownloadTimeout, kDownloadBounds);
}

void WindowDownload::FileDownloader_ReceivingProgressed(std::int64_t received, std::int64_t total) {
  ProgressBar1.Value(static_cast<double>(received));
  ProgressBar1.MaximumValue(total);
}

void WindowDownload::FileDownloader_FileReceived(const FolderItem& file) {
  surroundings_.Open(file);
  Close();
}

void WindowDownload::FileDownloader_Error(const NetworkException& error) {
  ShowDownload(false);
  ProgressBar1.Value(0);
  ProgressBar1.MaximumValue(kProgressMaximum);
  Tell(error.Why() == NetworkException::Cause::Storage ? NotSavedText(error.what(), Module1::CR)
                                                       : NoConnectionText(Module1::CR));
}

void WindowDownload::Tell(const std::string& text, TextRange reply) {
  StaticText1.Text(text, reply);
  Announce(text);
}

void WindowDownload::ShowDownload(bool visible) {
  ProgressBar1.Visible(visible);
  StaticText2.Visible(visible);
}

}  // namespace peakwright

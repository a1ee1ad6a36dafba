#include "runtime/url_connection.h"

#include <limits>
#include <utility>

#include <QTimer>

#include "runtime/application/held_input.h"
#include "runtime/desktop_application.h"
#include "runtime/transfers/origin_mark.h"
#include "runtime/transfers/part_file.h"
#include "runtime/transfers/transfer.h"

namespace peakwright {
namespace {

constexpr int kTicks = 10;  // Parts of a time-out that are counted one by one.
constexpr std::int64_t kAnyLength = std::numeric_limits<std::int64_t>::max();

}  // namespace

/// A request that the program waits for.
class URLConnection::Question : public QObject {
 public:
  Question(URLConnection& owner, std::string_view method, const std::string& url,
           std::chrono::milliseconds timeout, std::size_t limit, Answer then)
      : request_(
            LoadedTransport().Begin(method, url, owner.allowCertificateValidation_, kAnyLength)),
        limit_(limit),
        then_(std::move(then)) {
    request_->Received = [this](const std::string& data) {
      body_ += data;
      if (body_.size() >= limit_) End(true);
    };
    request_->Ended = [this](const auto& failure) { End(!failure.has_value()); };
    QTimer::singleShot(timeout, this, [this] { End(false); });
  }

  void Stop() {
    waiting_.reset();
    request_->Cancel();
  }

 private:
  void End(bool isAnswered) {
    if (!waiting_.has_value()) return;
    Stop();
    DesktopApplication::Current().Raise([&] {
      if (then_) then_(isAnswered ? std::optional(body_.substr(0, limit_)) : std::nullopt);
    });
  }

  std::optional<Waiting> waiting_{std::in_place};
  std::unique_ptr<Transfer> request_;
  std::string body_;
  std::size_t limit_;
  Answer then_;
};

class URLConnection::Download : public QObject {
 public:
  Download(URLConnection& owner, std::string_view method, std::string_view url,
           const FolderItem& target, std::chrono::milliseconds timeout, const Bounds& bounds)
      : owner_(owner),
        url_(url),
        target_(target),
        ticksLeft_(bounds.Time / (timeout / kTicks)),
        longest_(bounds.Bytes),
        file_(std::in_place, target) {
    if (!file_->Open()) {
      QTimer::singleShot(0, this, [this] {
        if (!IsOver()) FailToStore();
      });
      return;
    }
    request_ = LoadedTransport().Begin(method, url_, owner.allowCertificateValidation_, longest_);
    request_->Received = [this](const std::string& data) { Receive(data); };
    request_->Ended = [this](const auto& failure) { End(failure); };
    // One long timer would run out behind a long calculation, with bytes waiting to be read.
    connect(&tick_, &QTimer::timeout, this, [this] {
      if (++silentTicks_ < kTicks && --ticksLeft_ > 0) return;
      Fail({NetworkException::Cause::Connection, "No answer in time"});
    });
    tick_.start(timeout / kTicks);
  }

  bool IsOver() const { return !file_.has_value(); }

  void Stop() {
    tick_.stop();
    file_.reset();  // What wasn't committed goes away.
    if (request_) request_->Cancel();
  }

 private:
  void Receive(const std::string& data) {
    silentTicks_ = 0;
    if (data.empty()) return;
    const std::int64_t total = request_->AnnouncedLength();
    if (received_ == 0 && !file_->HasRoomFor(total)) {
      Fail(NetworkException(std::errc::no_space_on_device));
      return;
    }
    received_ += static_cast<std::int64_t>(data.size());
    if (received_ > longest_) {
      Fail(NetworkException(std::errc::file_too_large));
      return;
    }
    if (!file_->Write(data)) {
      FailToStore();
      return;
    }
    DesktopApplication::Current().Raise([&] {
      if (owner_.ReceivingProgressed) owner_.ReceivingProgressed(owner_, received_, total, data);
    });
  }

  void End(const std::optional<NetworkException>& failure) {
    if (failure.has_value()) {
      Fail(*failure);
      return;
    }
    if (!file_->Commit()) {
      FailToStore();
      return;
    }
    Stop();
    MarkOrigin(target_, request_->Url());
    DesktopApplication::Current().Raise([&] {
      if (owner_.FileReceived) owner_.FileReceived(owner_, url_, request_->Status(), target_);
    });
  }

  void FailToStore() { Fail({NetworkException::Cause::Storage, file_->Problem()}); }

  void Fail(const NetworkException& error) {
    Stop();
    DesktopApplication::Current().Raise([&] {
      if (owner_.Error) owner_.Error(owner_, error);
    });
  }

  URLConnection& owner_;
  std::string url_;
  FolderItem target_;
  std::int64_t ticksLeft_;
  std::int64_t longest_;
  std::optional<PartFile> file_;  // Until the transfer is over.
  std::int64_t received_ = 0;
  int silentTicks_ = 0;
  QTimer tick_;
  std::unique_ptr<Transfer> request_;
};

URLConnection::URLConnection() = default;

URLConnection::~URLConnection() = default;

void URLConnection::SendSync(std::string_view method, const std::string& url,
                             std::chrono::milliseconds timeout, std::size_t limit, Answer then) {
  // The last one may be the caller.
  if (question_) question_.release()->deleteLater();
  question_ = std::make_unique<Question>(*this, method, url, timeout, limit, std::move(then));
}

void URLConnection::Send(std::string_view method, std::string_view url, const FolderItem& file,
                         std::chrono::milliseconds timeout, const Bounds& bounds) {
  if (download_ && !download_->IsOver()) return;
  // The one that is over may be the caller.
  if (download_) download_.release()->deleteLater();
  download_ = std::make_unique<Download>(*this, method, url, file, timeout, bounds);
}

void URLConnection::Disconnect() {
  if (question_) question_->Stop();
  if (download_) download_->Stop();
}

}  // namespace peakwright

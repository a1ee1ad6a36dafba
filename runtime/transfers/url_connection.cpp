#include "runtime/url_connection.h"

#include <utility>

#include <QSaveFile>
#include <QTimer>

#include "runtime/application/held_input.h"
#include "runtime/desktop_application.h"
#include "runtime/text/toolkit_strings.h"
#include "runtime/transfers/https_request.h"
#include "runtime/transfers/origin_mark.h"

namespace peakwright {
namespace {

constexpr int kTicks = 10;  // Parts of a time-out that are counted one by one.

constexpr auto kExecutable =
    QFileDevice::ExeOwner | QFileDevice::ExeUser | QFileDevice::ExeGroup | QFileDevice::ExeOther;

}  // namespace

/// A request that the program waits for.
class URLConnection::Question : public QObject {
 public:
  Question(URLConnection& owner, std::string_view method, const std::string& url,
           std::chrono::milliseconds timeout, std::size_t limit, Answer then)
      : request_(method, url, owner.allowCertificateValidation_),
        limit_(limit),
        then_(std::move(then)) {
    request_.Received = [this](const std::string& data) {
      body_ += data;
      if (body_.size() >= limit_) End(true);
    };
    request_.Ended = [this](const QString& failure) { End(failure.isEmpty()); };
    QTimer::singleShot(timeout, this, [this] { End(false); });
  }

  void Stop() {
    waiting_.reset();
    request_.Cancel();
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
  HttpsRequest request_;
  std::string body_;
  std::size_t limit_;
  Answer then_;
};

class URLConnection::Transfer : public QObject {
 public:
  Transfer(URLConnection& owner, std::string_view method, std::string_view url,
           const FolderItem& target, std::chrono::milliseconds timeout)
      : owner_(owner),
        url_(url),
        target_(target),
        file_(std::in_place, ToQString(target.NativePath())) {
    // With a buffer in between the toolkit loses the reason for a failure.
    if (!file_->open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
      QTimer::singleShot(0, this, [this] {
        if (!IsOver()) FailToStore();
      });
      return;
    }
    request_.emplace(method, url_, owner.allowCertificateValidation_);
    request_->Answered = [this] { silentTicks_ = 0; };
    request_->Received = [this](const std::string& data) { Receive(data); };
    request_->Ended = [this](const QString& failure) { End(failure); };
    // One long timer would run out behind a long calculation, with bytes waiting to be read.
    connect(&tick_, &QTimer::timeout, this, [this] {
      if (++silentTicks_ >= kTicks) End(QStringLiteral("No answer in time"));
    });
    tick_.start(timeout / kTicks);
  }

  bool IsOver() const { return !file_.has_value(); }

  void Stop() {
    tick_.stop();
    file_.reset();  // What wasn't committed goes away.
    if (request_.has_value()) request_->Cancel();
  }

 private:
  void Receive(const std::string& data) {
    silentTicks_ = 0;
    if (!Store(data)) {
      FailToStore();
      return;
    }
    received_ += static_cast<std::int64_t>(data.size());
    DesktopApplication::Current().Raise([&] {
      if (!owner_.ReceivingProgressed) return;
      owner_.ReceivingProgressed(owner_, received_, request_->AnnouncedLength(), data);
    });
  }

  bool Store(std::string_view data) {
    while (!data.empty()) {  // A disk that is nearly full takes some and gives its reason next.
      const qint64 stored = file_->write(data.data(), static_cast<qint64>(data.size()));
      if (stored <= 0) return false;
      data.remove_prefix(static_cast<std::size_t>(stored));
    }
    return true;
  }

  void End(const QString& failure) {
    if (!failure.isEmpty()) {
      Fail({NetworkException::Cause::Connection, failure.toStdString()});
      return;
    }
    // The file takes over the older one's permissions.
    file_->setPermissions(file_->permissions() & ~kExecutable);
    if (!file_->commit()) {
      FailToStore();
      return;
    }
    Stop();
    MarkOrigin(target_, request_->Url());
    DesktopApplication::Current().Raise([&] {
      if (owner_.FileReceived) owner_.FileReceived(owner_, url_, request_->Status(), target_);
    });
  }

  void FailToStore() {
    Fail({NetworkException::Cause::Storage, file_->errorString().toStdString()});
  }

  void Fail(const NetworkException& error) {
    Stop();
    DesktopApplication::Current().Raise([&] {
      if (owner_.Error) owner_.Error(owner_, error);
    });
  }

  URLConnection& owner_;
  std::string url_;
  FolderItem target_;
  std::optional<QSaveFile> file_;  // Until the transfer is over.
  std::int64_t received_ = 0;
  int silentTicks_ = 0;
  QTimer tick_;
  std::optional<HttpsRequest> request_;
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
                         std::chrono::milliseconds timeout) {
  if (transfer_ && !transfer_->IsOver()) return;
  // The one that is over may be the caller.
  if (transfer_) transfer_.release()->deleteLater();
  transfer_ = std::make_unique<Transfer>(*this, method, url, file, timeout);
}

void URLConnection::Disconnect() {
  if (question_) question_->Stop();
  if (transfer_) transfer_->Stop();
}

}  // namespace peakwright

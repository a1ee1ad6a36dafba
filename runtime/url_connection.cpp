#include "runtime/url_connection.h"

#include <optional>

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSaveFile>
#include <QSslConfiguration>
#include <QTimer>

#include "runtime/caption_text.h"
#include "runtime/desktop_application.h"

namespace peakwright {
namespace {

constexpr int kRedirects = 5;
constexpr qint64 kReadAhead = 1 << 20;  // Bytes held in memory while the program is busy.
constexpr int kTicks = 10;              // Parts of a time-out that are counted one by one.

QNetworkRequest MakeRequest(std::string_view url, bool validate) {
  QNetworkRequest request{QUrl(ToQString(url))};
  request.setMaximumRedirectsAllowed(kRedirects);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                       QNetworkRequest::NoLessSafeRedirectPolicy);
  request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
  for (const auto personal :
       {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
        QNetworkRequest::AuthenticationReuseAttribute}) {
    request.setAttribute(personal, QNetworkRequest::Manual);
  }
  // The toolkit would fill these in from the system. An encoded body would also come without a
  // length to measure progress by.
  request.setRawHeader("User-Agent", "Peakwright");
  request.setRawHeader("Accept-Language", "*");
  request.setRawHeader("Accept-Encoding", "identity");
  if (!validate) {
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setPeerVerifyMode(QSslSocket::VerifyNone);
    request.setSslConfiguration(tls);
  }
  return request;
}

/// The reply is the manager's.
QNetworkReply& Start(QNetworkAccessManager& manager, std::string_view method, std::string_view url,
                     bool validate) {
  QNetworkReply& reply =
      *manager.sendCustomRequest(MakeRequest(url, validate), ToQString(method).toUtf8());
  reply.setReadBufferSize(kReadAhead);
  return reply;
}

qint64 AnnouncedLength(const QNetworkReply& reply) {
  return reply.header(QNetworkRequest::ContentLengthHeader).toLongLong();
}

/// Whether the reply came to its end; an HTTP error is a reply like any other.
bool IsWhole(const QNetworkReply& reply, qint64 received) {
  const int error = reply.error();
  const bool replied =
      error == QNetworkReply::NoError ||
      (error >= QNetworkReply::ContentAccessDenied &&
       error <= QNetworkReply::UnknownContentError) ||
      (error >= QNetworkReply::InternalServerError && error <= QNetworkReply::UnknownServerError);
  return replied && received >= AnnouncedLength(reply);
}

}  // namespace

class URLConnection::Transfer : public QObject {
 public:
  Transfer(URLConnection& owner, std::string_view method, std::string_view url,
           const FolderItem& target, std::chrono::milliseconds timeout)
      : owner_(owner),
        url_(url),
        target_(target),
        file_(std::in_place, ToQString(target.NativePath())) {
    if (!file_->open(QIODevice::WriteOnly)) {
      QTimer::singleShot(0, this, [this] { Fail(file_->errorString()); });
      return;
    }
    reply_ = &Start(manager_, method, url, owner.allowCertificateValidation_);
    connect(reply_, &QNetworkReply::metaDataChanged, this, [this] { silentTicks_ = 0; });
    connect(reply_, &QNetworkReply::readyRead, this, [this] { Receive(); });
    connect(reply_, &QNetworkReply::finished, this, [this] { End(); });
    // One long timer would run out behind a long calculation, with bytes waiting to be read.
    connect(&tick_, &QTimer::timeout, this, [this] {
      if (++silentTicks_ >= kTicks) Fail(QStringLiteral("No answer in time"));
    });
    tick_.start(timeout / kTicks);
  }

  ~Transfer() override {
    if (reply_ != nullptr) reply_->disconnect(this);
  }

  bool IsOver() const { return !file_.has_value(); }

 private:
  void Receive() {
    silentTicks_ = 0;
    const QByteArray data = reply_->readAll();
    if (data.isEmpty()) return;
    if (file_->write(data) != data.size()) {
      Fail(file_->errorString());
      return;
    }
    received_ += data.size();
    DesktopApplication::Current().Raise([&] {
      if (!owner_.ReceivingProgressed) return;
      owner_.ReceivingProgressed(owner_, received_, AnnouncedLength(*reply_),
                                 std::string_view(data.data(), data.size()));
    });
  }

  void End() {
    Receive();
    if (IsOver()) return;
    if (!IsWhole(*reply_, received_)) {
      Fail(reply_->errorString());
    } else if (!file_->commit()) {
      Fail(file_->errorString());
    } else {
      Stop();
      const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
      DesktopApplication::Current().Raise([&] {
        if (owner_.FileReceived) owner_.FileReceived(owner_, url_, status, target_);
      });
    }
  }

  void Fail(const QString& why) {
    const NetworkException error(why.toStdString());
    Stop();
    DesktopApplication::Current().Raise([&] {
      if (owner_.Error) owner_.Error(owner_, error);
    });
  }

  void Stop() {
    tick_.stop();
    file_.reset();  // What wasn't committed goes away.
    if (reply_ == nullptr) return;
    reply_->disconnect(this);
    reply_->abort();
  }

  URLConnection& owner_;
  std::string url_;
  FolderItem target_;
  std::optional<QSaveFile> file_;  // Until the transfer is over.
  qint64 received_ = 0;
  int silentTicks_ = 0;
  QTimer tick_;
  QNetworkAccessManager manager_;
  QNetworkReply* reply_ = nullptr;
};

URLConnection::URLConnection() = default;

URLConnection::~URLConnection() = default;

std::string URLConnection::SendSync(std::string_view method, std::string_view url,
                                    std::chrono::milliseconds timeout, std::size_t limit) {
  QNetworkAccessManager manager;
  QNetworkReply& reply = Start(manager, method, url, allowCertificateValidation_);
  std::string body;
  QEventLoop wait;
  QObject::connect(&reply, &QNetworkReply::readyRead, &wait, [&] {
    body += reply.readAll().toStdString();
    if (body.size() >= limit) wait.quit();
  });
  QObject::connect(&reply, &QNetworkReply::finished, &wait, &QEventLoop::quit);
  QTimer::singleShot(timeout, &wait, &QEventLoop::quit);
  wait.exec(QEventLoop::ExcludeUserInputEvents);

  if (body.size() >= limit) return body.substr(0, limit);
  // Not finished: the time is up, or the program is being ended.
  if (!reply.isFinished()) throw NetworkException("No answer in time");
  body += reply.readAll().toStdString();
  if (!IsWhole(reply, static_cast<qint64>(body.size()))) {
    throw NetworkException(reply.errorString().toStdString());
  }
  return body.substr(0, limit);
}

void URLConnection::Send(std::string_view method, std::string_view url, const FolderItem& file,
                         std::chrono::milliseconds timeout) {
  if (transfer_ && !transfer_->IsOver()) return;
  // The one that is over may be the caller.
  if (transfer_) transfer_.release()->deleteLater();
  transfer_ = std::make_unique<Transfer>(*this, method, url, file, timeout);
}

}  // namespace peakwright

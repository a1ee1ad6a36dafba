#include "runtime/transfers/https_request.h"

#include <algorithm>
#include <chrono>

#include <QNetworkProxy>
#include <QSslConfiguration>
#include <QSslSocket>
#include <QTimer>

#include "runtime/text/toolkit_strings.h"

namespace peakwright {
namespace {

constexpr int kRedirects = 5;
constexpr qint64 kReadAhead = 1 << 20;  // Bytes held in memory while the program is busy.
constexpr quint16 kHttpsPort = 443;
constexpr auto kPatience = std::chrono::seconds(5);  // With an address that doesn't answer.

bool leftLookup = false;

bool IsRedirect(int status) {
  return (status >= 301 && status <= 303) || status == 307 || status == 308;
}

/// The first that the system names and that passes TLS through.
QNetworkProxy ProxyFor(const QUrl& url) {
  const QList<QNetworkProxy> named = QNetworkProxyFactory::proxyForQuery(QNetworkProxyQuery(url));
  const auto found = std::find_if(named.begin(), named.end(), [](const QNetworkProxy& proxy) {
    return proxy.type() == QNetworkProxy::NoProxy ||
           proxy.capabilities().testFlag(QNetworkProxy::TunnelingCapability);
  });
  return found == named.end() ? QNetworkProxy(QNetworkProxy::NoProxy) : *found;
}

}  // namespace

HttpsRequest::HttpsRequest(std::string_view method, const std::string& url,
                           bool validatesCertificate)
    : method_(ToQString(method).toLatin1()),
      url_(ToQString(url)),
      validatesCertificate_(validatesCertificate) {
  // Not before the maker has said what is to be called.
  QMetaObject::invokeMethod(
      this, [this] { Connect(); }, Qt::QueuedConnection);
}

HttpsRequest::~HttpsRequest() { Cancel(); }

bool HttpsRequest::HasLeftLookup() { return leftLookup; }

void HttpsRequest::Connect() {
  if (url_.scheme() != QStringLiteral("https") || url_.host().isEmpty()) {
    End(QStringLiteral("Not a secured address"));
    return;
  }
  socket_ = new QSslSocket(this);
  connect(socket_, &QSslSocket::encrypted, this, [this] { Ask(); });
  connect(socket_, &QSslSocket::readyRead, this, [this] { Read(); });
  connect(socket_, &QSslSocket::alertReceived, this, [this](auto, QSsl::AlertType type) {
    if (type == QSsl::AlertType::CloseNotify) isEndAnnounced_ = true;
  });
  connect(socket_, &QSslSocket::disconnected, this, [this] { Close(); });
  connect(socket_, &QSslSocket::errorOccurred, this, [this](QAbstractSocket::SocketError error) {
    if (error != QAbstractSocket::RemoteHostClosedError) End(socket_->errorString());
  });
  if (!validatesCertificate_) {
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setPeerVerifyMode(QSslSocket::VerifyNone);
    socket_->setSslConfiguration(tls);
  }
  socket_->setReadBufferSize(kReadAhead);
  const QNetworkProxy proxy = ProxyFor(url_);
  socket_->setProxy(proxy);
  socket_->connectToHostEncrypted(
      url_.host(QUrl::FullyEncoded), static_cast<quint16>(url_.port(kHttpsPort)),
      QIODevice::ReadWrite,
      usesIpv4Only_ ? QAbstractSocket::IPv4Protocol : QAbstractSocket::AnyIPProtocol);
  if (usesIpv4Only_ || proxy.type() != QNetworkProxy::NoProxy) return;
  // Where IPv6 leads nowhere, an address of that kind would use up the time.
  QTimer::singleShot(kPatience, socket_, [this] {
    if (socket_->state() != QAbstractSocket::ConnectingState) return;
    usesIpv4Only_ = true;
    Reconnect();
  });
}

void HttpsRequest::Ask() {
  const QByteArray path = url_.path(QUrl::FullyEncoded).toUtf8();
  const QByteArray query = url_.query(QUrl::FullyEncoded).toUtf8();
  const QUrl host = url_.adjusted(QUrl::RemoveUserInfo);
  // An encoded body would come without a length to measure progress by.
  socket_->write(method_ + ' ' + (path.isEmpty() ? "/" : path) +
                 (query.isEmpty() ? "" : '?' + query) +
                 " HTTP/1.1\r\nHost: " + host.authority(QUrl::FullyEncoded).toUtf8() +
                 "\r\nUser-Agent: Peakwright\r\nAccept-Encoding: identity\r\n"
                 "Connection: close\r\n\r\n");
}

void HttpsRequest::Read() {
  while (!isOver_ && socket_->bytesAvailable() > 0) {
    const QByteArray data = socket_->readAll();
    const std::string body = reader_.Read({data.data(), static_cast<std::size_t>(data.size())});
    if (reader_.IsMalformed()) {
      End(QStringLiteral("Not a reply by the rules of HTTP"));
      return;
    }
    if (!reader_.HasHead()) continue;
    if (IsRedirect(reader_.Status()) && !reader_.Location().empty()) {
      Follow(url_.resolved(QUrl(QString::fromStdString(reader_.Location()))));
      return;
    }
    if (!hasAnswered_ && Answered) Answered();
    hasAnswered_ = true;
    if (!body.empty() && Received) Received(body);
    if (reader_.IsWhole()) End({});
  }
}

void HttpsRequest::Close() {
  const QSslSocket* closed = socket_;
  Read();
  if (isOver_ || socket_ != closed) return;
  // A system that doesn't tell how connections end is trusted to look at it.
  reader_.End(isEndAnnounced_ || !QSslSocket::isFeatureSupported(QSsl::SupportedFeature::Alerts));
  End(reader_.IsWhole() ? QString() : QStringLiteral("The connection was cut"));
}

void HttpsRequest::Follow(const QUrl& target) {
  if (++redirects_ > kRedirects) {
    End(QStringLiteral("Too many redirects"));
    return;
  }
  url_ = target;
  reader_ = HttpReplyReader();
  isEndAnnounced_ = false;
  usesIpv4Only_ = false;
  Reconnect();
}

void HttpsRequest::Reconnect() {
  socket_->disconnect(this);
  socket_->deleteLater();
  socket_ = nullptr;
  Connect();
}

void HttpsRequest::Cancel() {
  isOver_ = true;
  if (socket_ == nullptr) return;
  if (socket_->state() == QAbstractSocket::HostLookupState) leftLookup = true;
  socket_->disconnect(this);
  socket_->disconnectFromHost();
}

void HttpsRequest::End(const QString& failure) {
  if (isOver_) return;
  Cancel();
  if (Ended) Ended(failure);
}

}  // namespace peakwright

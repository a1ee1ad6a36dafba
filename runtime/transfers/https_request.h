#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include <QObject>
#include <QUrl>

#include "runtime/transfers/http_reply_reader.h"

class QSslSocket;

namespace peakwright {

/// One HTTP request over TLS, through the proxy that the system names. It begins as it is made,
/// follows up to five redirects, to https only, and calls Ended once, unless it was cancelled. None
/// of its calls may destroy it.
class HttpsRequest : public QObject {
 public:
  HttpsRequest(std::string_view method, const std::string& url, bool validatesCertificate);
  ~HttpsRequest() override;

  /// Whether the system may still be looking up a name for a request that has ended. Nobody can
  /// call that off.
  static bool HasLeftLookup();

  std::function<void()> Answered;                         ///< The head of the reply is there.
  std::function<void(const std::string& data)> Received;  ///< More of its body.
  std::function<void(const QString& failure)> Ended;      ///< Whole, if `failure` is empty.

  /// Ends the request quietly.
  void Cancel();

  /// Where the reply comes from, after the redirects.
  const QUrl& Url() const { return url_; }
  int Status() const { return reader_.Status(); }
  /// In bytes; 0 if the server doesn't say.
  std::int64_t AnnouncedLength() const { return reader_.AnnouncedLength(); }

 private:
  void Connect();
  void Ask();
  void Read();
  void Close();
  void Follow(const QUrl& target);
  void Reconnect();
  void End(const QString& failure);

  QByteArray method_;
  QUrl url_;
  bool validatesCertificate_;
  bool usesIpv4Only_ = false;
  int redirects_ = 0;
  bool isOver_ = false;
  bool hasAnswered_ = false;
  bool isEndAnnounced_ = false;  // The server has said that it sends nothing more.
  HttpReplyReader reader_;
  QSslSocket* socket_ = nullptr;  // Its parent is this object.
};

}  // namespace peakwright

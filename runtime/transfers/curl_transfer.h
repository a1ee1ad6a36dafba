#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <curl/curl.h>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <QFutureWatcher>
#include <QNetworkProxy>
#include <QSocketNotifier>
#include <QTimer>
#include <QUrl>

#include "runtime/url_connection.h"

namespace peakwright {

/// One HTTP request over TLS, through the proxy that the system names, worked by libcurl within the
/// event loop. It begins as it is made, and calls Ended once, unless it was cancelled. None of its
/// calls may destroy it.
class CurlTransfer : public QObject {
 public:
  /// The request fails if a longer body than `longest` bytes is announced.
  CurlTransfer(std::string_view method, std::string_view url, bool validatesCertificate,
               std::int64_t longest);
  ~CurlTransfer() override;

  /// Something has arrived; `data` is what of it belongs to the body, maybe nothing.
  std::function<void(const std::string& data)> Received;
  /// The reply is whole, or there was a failure.
  std::function<void(const std::optional<NetworkException>& failure)> Ended;

  /// Ends the request quietly.
  void Cancel();

  QUrl Url() const;    ///< Where the reply comes from, after the redirects.
  int Status() const;  ///< As 200.
  /// Of the body in bytes; 0 if the server doesn't say.
  std::int64_t AnnouncedLength() const;

 private:
  template <auto End>
  struct Ending {
    void operator()(auto* ended) const { End(ended); }
  };
  static void LetGo(QSocketNotifier* notifier);
  using Notifier = std::unique_ptr<QSocketNotifier, Ending<&LetGo>>;

  // What libcurl calls. No exception gets out of these.
  static std::size_t TakeHeader(const char* line, std::size_t, std::size_t size, void* self);
  static std::size_t TakeBody(const char* data, std::size_t, std::size_t size, void* self);
  static int Watch(CURL*, curl_socket_t socket, int what, void* self, void*);
  static int SetTimer(CURLM*, long milliseconds, void* self);

  void Begin(const QNetworkProxy& proxy);
  void SetOptions(const QNetworkProxy& proxy);
  Notifier Notify(curl_socket_t socket, QSocketNotifier::Type type, int what);
  void Act(curl_socket_t socket, int what);
  void Deliver();
  void End(const std::optional<NetworkException>& failure);
  template <class Value>
  Value Info(CURLINFO what, Value otherwise) const;

  std::string method_;
  QUrl url_;
  bool validatesCertificate_;
  std::int64_t longest_;

  bool isOver_ = false;
  QFutureWatcher<QNetworkProxy> proxy_;
  std::map<curl_socket_t, std::array<Notifier, 2>> sockets_;  // For reading, for writing.
  QTimer timer_;
  std::size_t headBytes_ = 0;  // Of all heads and trailers.
  bool hasArrived_ = false;    // Since the last call of Received, and with it
  std::string arrived_;        // this of the body.
  std::unique_ptr<CURL, Ending<&curl_easy_cleanup>> easy_;
  std::unique_ptr<CURLM, Ending<&curl_multi_cleanup>> multi_;
};

}  // namespace peakwright

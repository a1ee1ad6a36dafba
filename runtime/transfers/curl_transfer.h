#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <curl/curl.h>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <QFutureWatcher>
#include <QNetworkProxy>
#include <QSocketNotifier>
#include <QTimer>

#include "runtime/transfers/transfer.h"

namespace peakwright {

/// A request worked by libcurl. It begins as it is made.
class CurlTransfer : public QObject, public Transfer {
 public:
  CurlTransfer(std::string_view method, std::string_view url, bool validatesCertificate,
               std::int64_t longest);
  ~CurlTransfer() override { CurlTransfer::Cancel(); }

  void Cancel() override;
  QUrl Url() const override;
  int Status() const override;
  std::int64_t AnnouncedLength() const override;

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

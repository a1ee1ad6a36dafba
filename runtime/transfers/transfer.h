#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <QUrl>

#include "runtime/url_connection.h"

namespace peakwright {

/// One HTTP request over TLS, through the proxy that the system names, worked within the event
/// loop. It calls Ended once, unless it was cancelled. None of its calls may destroy it.
class Transfer {
 public:
  Transfer() = default;
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;
  virtual ~Transfer() = default;

  /// Something has arrived; `data` is what of it belongs to the body, maybe nothing.
  std::function<void(const std::string& data)> Received;
  /// The reply is whole, or there was a failure.
  std::function<void(const std::optional<NetworkException>& failure)> Ended;

  /// Ends the request quietly.
  virtual void Cancel() = 0;

  virtual QUrl Url() const = 0;    ///< Where the reply comes from, after the redirects.
  virtual int Status() const = 0;  ///< As 200.
  /// Of the body in bytes; 0 if the server doesn't say.
  virtual std::int64_t AnnouncedLength() const = 0;
};

/// What needs the libraries of the network.
struct Transport {
  bool (*IsConnected)();
  /// Begins a request. It fails if a longer body than `longest` bytes is announced.
  std::unique_ptr<Transfer> (*Begin)(std::string_view method, std::string_view url,
                                     bool validatesCertificate, std::int64_t longest);
};

/// Loads it at the first call: with those libraries the program would take a quarter longer to
/// start. Throws if they aren't there.
const Transport& LoadedTransport();

}  // namespace peakwright

/// What the loaded file holds.
extern "C" Q_DECL_EXPORT const peakwright::Transport* PeakwrightTransport();

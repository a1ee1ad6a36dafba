#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "runtime/folder_item.h"

namespace peakwright {

/// A request got no whole reply: refused, no such host, timed out, broken off, not secured, sent
/// on too often or to a less safe place, or not to be stored.
class NetworkException : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// One HTTP request at a time. A reply of any status is a reply. At most five redirects are
/// followed, never from https to http. Nothing that tells of the user goes out: no cookies, no
/// language, no system; nothing is cached.
class URLConnection {
 public:
  URLConnection();
  URLConnection(const URLConnection&) = delete;
  URLConnection& operator=(const URLConnection&) = delete;
  /// Ends a transfer quietly. Not to be called from one of the connection's own events.
  ~URLConnection();

  /// Whether a server must prove who it is. The transfer is encrypted in either case.
  bool AllowCertificateValidation() const { return allowCertificateValidation_; }
  void AllowCertificateValidation(bool allow) { allowCertificateValidation_ = allow; }

  /// Performs the request and gives the reply's body, of a longer one the first `limit` bytes.
  /// Until then windows are repainted, and what the user does waits for its turn. Throws
  /// NetworkException if the reply isn't there after `timeout` in all.
  std::string SendSync(std::string_view method, std::string_view url,
                       std::chrono::milliseconds timeout, std::size_t limit);

  /// Starts the request and returns at once. The body goes into a file beside `file`, which takes
  /// the place of `file` when it is whole, and goes away if it never is. The transfer fails after
  /// `timeout` without any byte. Does nothing while a transfer is under way.
  void Send(std::string_view method, std::string_view url, const FolderItem& file,
            std::chrono::milliseconds timeout);

  /// Raised as the body of an asynchronous reply arrives. `total` is 0 if the server didn't
  /// announce it. Both count bytes.
  std::function<void(URLConnection& sender, std::int64_t received, std::int64_t total,
                     std::string_view newData)>
      ReceivingProgressed;
  /// Raised when the whole body stands in `file`.
  std::function<void(URLConnection& sender, const std::string& url, int status,
                     const FolderItem& file)>
      FileReceived;
  /// Raised when an asynchronous transfer has failed.
  std::function<void(URLConnection& sender, const NetworkException& error)> Error;

 private:
  class Transfer;

  std::unique_ptr<Transfer> transfer_;  // The last one started, under way or ended.
  bool allowCertificateValidation_ = true;
};

}  // namespace peakwright

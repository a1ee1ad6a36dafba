#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include "runtime/folder_item.h"

namespace peakwright {

/// A request got no whole reply: refused, no such host, timed out, broken off, not secured, not by
/// the rules of HTTP, sent on too often or to a less safe place. Or the reply couldn't be stored.
class NetworkException : public std::runtime_error {
 public:
  enum class Cause { Connection, Storage };

  NetworkException(Cause cause, const std::string& what)
      : std::runtime_error(what), cause_(cause) {}
  /// The reply couldn't be stored, for this reason.
  explicit NetworkException(std::errc why)
      : NetworkException(Cause::Storage, std::make_error_code(why).message()) {}
  Cause Why() const { return cause_; }

 private:
  Cause cause_;
};

/// One HTTP request at a time, over TLS only. A whole reply of any status is a reply. At most five
/// redirects are followed, never to a place that isn't secured. Nothing that tells of the user goes
/// out: no cookies, no language, no system; nothing is cached.
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

  /// Gets the body, or nothing if there was no whole reply in time.
  using Answer = std::function<void(const std::optional<std::string>& body)>;

  /// Begins the request and, whatever its name says, returns at once; it is the program that waits:
  /// until the reply is there or `timeout` in all is over, windows are repainted, and what the user
  /// does is kept for afterwards; only quitting isn't. Then calls `then` with the body, of a longer
  /// one with the first `limit` bytes.
  void SendSync(std::string_view method, const std::string& url, std::chrono::milliseconds timeout,
                std::size_t limit, Answer then);

  /// How far a transfer into a file may go.
  struct Bounds {
    std::chrono::milliseconds Time;  ///< In all.
    std::int64_t Bytes;              ///< Of the body.
  };

  /// Starts the request and returns at once. The body goes into a file beside `file`, which takes
  /// the place of `file` when it is whole, and goes away if it never is. It is marked with where it
  /// comes from, its user can read and write it, and nobody can execute it. The transfer fails
  /// after `timeout` without any byte, past its bounds, and where the announced body has no room on
  /// the disk. Does nothing while a transfer is under way.
  void Send(std::string_view method, std::string_view url, const FolderItem& file,
            std::chrono::milliseconds timeout, const Bounds& bounds);

  /// Ends what is under way, quietly: no event is raised any more, and nothing is stored. An event
  /// may call it.
  void Disconnect();

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
  class Question;
  class Download;

  std::unique_ptr<Question> question_;  // The last ones started, under way or over.
  std::unique_ptr<Download> download_;
  bool allowCertificateValidation_ = true;
};

}  // namespace peakwright

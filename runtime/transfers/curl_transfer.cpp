#include "runtime/transfers/curl_transfer.h"

#include <algorithm>
#include <exception>
#include <system_error>
#include <thread>
#include <utility>

#include <QPromise>

#include "runtime/text/toolkit_strings.h"

namespace peakwright {
namespace {

constexpr std::size_t kLongestHead = std::size_t{64} * 1024;        // Bytes, of all heads together.
constexpr std::size_t kMostAtOnce = std::size_t{16} * 1024 * 1024;  // Bytes, far beyond a read's.
constexpr long kRedirects = 5;
constexpr int kFirstFinal = 200;  // Statuses below promise another reply.

/// The first that the system names and that passes TLS through.
QNetworkProxy ProxyFor(const QUrl& url) {
  const QList<QNetworkProxy> named = QNetworkProxyFactory::proxyForQuery(QNetworkProxyQuery(url));
  const auto found = std::find_if(named.begin(), named.end(), [](const QNetworkProxy& proxy) {
    return proxy.type() == QNetworkProxy::NoProxy ||
           proxy.capabilities().testFlag(QNetworkProxy::TunnelingCapability);
  });
  return found == named.end() ? QNetworkProxy(QNetworkProxy::NoProxy) : *found;
}

/// As libcurl wants it; empty for none, whatever the environment says.
std::string AddressOf(const QNetworkProxy& proxy) {
  if (proxy.type() == QNetworkProxy::NoProxy) return {};
  QUrl address;
  const bool isSocks = proxy.type() == QNetworkProxy::Socks5Proxy;
  address.setScheme(isSocks ? QStringLiteral("socks5h") : QStringLiteral("http"));
  address.setHost(proxy.hostName());
  if (proxy.port() != 0) address.setPort(proxy.port());
  return address.toEncoded().toStdString();
}

std::optional<NetworkException> FailureOf(CURLcode code, int status) {
  if (code == CURLE_FILESIZE_EXCEEDED) return NetworkException(std::errc::file_too_large);
  if (code == CURLE_OK) {
    if (status >= kFirstFinal) return std::nullopt;
    code = CURLE_WEIRD_SERVER_REPLY;
  }
  return NetworkException(NetworkException::Cause::Connection, curl_easy_strerror(code));
}

}  // namespace

void CurlTransfer::LetGo(QSocketNotifier* notifier) {
  notifier->setEnabled(false);
  notifier->deleteLater();  // It may be the one that is calling.
}

CurlTransfer::CurlTransfer(std::string_view method, std::string_view url, bool validatesCertificate,
                           std::int64_t longest)
    : method_(method),
      url_(ToQString(url)),
      validatesCertificate_(validatesCertificate),
      longest_(longest) {
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, [this] { Act(CURL_SOCKET_TIMEOUT, 0); });
  connect(&proxy_, &QFutureWatcherBase::finished, this, [this] {
    if (!isOver_) Begin(proxy_.future().resultCount() > 0 ? proxy_.result() : QNetworkProxy());
  });
  // The system may look for the proxy without end, which nobody can call off.
  QPromise<QNetworkProxy> answer;
  proxy_.setFuture(answer.future());
  try {
    std::thread([url = url_, answer = std::move(answer)]() mutable {
      answer.start();
      answer.addResult(ProxyFor(url));
      answer.finish();
    }).detach();
  } catch (const std::system_error&) {  // No such thread: the answer ends without a proxy.
  }
}

QUrl CurlTransfer::Url() const {
  return QUrl::fromEncoded(Info<const char*>(CURLINFO_EFFECTIVE_URL, ""));
}

int CurlTransfer::Status() const { return static_cast<int>(Info<long>(CURLINFO_RESPONSE_CODE, 0)); }

std::int64_t CurlTransfer::AnnouncedLength() const {
  return std::max<std::int64_t>(Info<curl_off_t>(CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, 0), 0);
}

template <class Value>
Value CurlTransfer::Info(CURLINFO what, Value otherwise) const {
  Value value = otherwise;
  if (easy_) curl_easy_getinfo(easy_.get(), what, &value);
  return value;
}

void CurlTransfer::Begin(const QNetworkProxy& proxy) {
  easy_.reset(curl_easy_init());
  multi_.reset(curl_multi_init());
  if (!easy_ || !multi_) {
    End(FailureOf(CURLE_FAILED_INIT, 0));
    return;
  }
  SetOptions(proxy);
  curl_multi_setopt(multi_.get(), CURLMOPT_SOCKETFUNCTION, &Watch);
  curl_multi_setopt(multi_.get(), CURLMOPT_SOCKETDATA, this);
  curl_multi_setopt(multi_.get(), CURLMOPT_TIMERFUNCTION, &SetTimer);
  curl_multi_setopt(multi_.get(), CURLMOPT_TIMERDATA, this);
  curl_multi_add_handle(multi_.get(), easy_.get());  // Sets the timer, which begins it.
}

void CurlTransfer::SetOptions(const QNetworkProxy& proxy) {
  const auto set = [this](CURLoption option, auto value) {
    curl_easy_setopt(easy_.get(), option, value);
  };
  set(CURLOPT_URL, url_.toEncoded().constData());
  set(CURLOPT_CUSTOMREQUEST, method_.c_str());
  set(CURLOPT_USERAGENT, "Peakwright");
  set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
  set(CURLOPT_PROTOCOLS_STR, "https");  // After redirects, too.
  set(CURLOPT_FOLLOWLOCATION, 1L);
  set(CURLOPT_MAXREDIRS, kRedirects);
  set(CURLOPT_SSL_VERIFYPEER, validatesCertificate_ ? 1L : 0L);
  set(CURLOPT_SSL_VERIFYHOST, validatesCertificate_ ? 2L : 0L);
  if (!validatesCertificate_) {  // The known ones would be read all the same.
    set(CURLOPT_CAINFO, nullptr);
    set(CURLOPT_CAPATH, nullptr);
  }
  set(CURLOPT_PROXY, AddressOf(proxy).c_str());
  set(CURLOPT_NOPROXY, "");
  if (!proxy.user().isEmpty()) {
    set(CURLOPT_PROXYUSERNAME, proxy.user().toUtf8().constData());
    set(CURLOPT_PROXYPASSWORD, proxy.password().toUtf8().constData());
    set(CURLOPT_PROXYAUTH, static_cast<long>(CURLAUTH_BASIC | CURLAUTH_DIGEST | CURLAUTH_NTLM));
  }
  set(CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(longest_));
  set(CURLOPT_QUICK_EXIT, 1L);  // Doesn't wait for a look-up of a name.
  set(CURLOPT_HEADERFUNCTION, &TakeHeader);
  set(CURLOPT_HEADERDATA, static_cast<void*>(this));
  set(CURLOPT_WRITEFUNCTION, &TakeBody);
  set(CURLOPT_WRITEDATA, static_cast<void*>(this));
}

std::size_t CurlTransfer::TakeHeader(const char*, std::size_t, std::size_t size, void* self) {
  auto& transfer = *static_cast<CurlTransfer*>(self);
  transfer.hasArrived_ = true;
  transfer.headBytes_ += size;
  return transfer.headBytes_ <= kLongestHead ? size : 0;
}

std::size_t CurlTransfer::TakeBody(const char* data, std::size_t, std::size_t size,
                                   void* self) try {
  auto& transfer = *static_cast<CurlTransfer*>(self);
  transfer.hasArrived_ = true;
  // Only what unfolds in the transfer, as no request asks for, comes in such amounts.
  if (transfer.arrived_.size() + size > kMostAtOnce) return 0;
  transfer.arrived_.append(data, size);
  return size;
} catch (const std::exception&) {
  return 0;
}

int CurlTransfer::Watch(CURL*, curl_socket_t socket, int what, void* self, void*) try {
  auto& transfer = *static_cast<CurlTransfer*>(self);
  if (what == CURL_POLL_REMOVE) {
    transfer.sockets_.erase(socket);
    return 0;
  }
  auto& [in, out] = transfer.sockets_[socket];
  if (!in) in = transfer.Notify(socket, QSocketNotifier::Read, CURL_CSELECT_IN);
  if (!out) out = transfer.Notify(socket, QSocketNotifier::Write, CURL_CSELECT_OUT);
  in->setEnabled((what & CURL_POLL_IN) != 0);
  out->setEnabled((what & CURL_POLL_OUT) != 0);
  return 0;
} catch (const std::exception&) {
  return -1;
}

int CurlTransfer::SetTimer(CURLM*, long milliseconds, void* self) {
  QTimer& timer = static_cast<CurlTransfer*>(self)->timer_;
  if (milliseconds < 0) {
    timer.stop();
  } else {
    timer.start(std::chrono::milliseconds(milliseconds));
  }
  return 0;
}

CurlTransfer::Notifier CurlTransfer::Notify(curl_socket_t socket, QSocketNotifier::Type type,
                                            int what) {
  Notifier notifier(new QSocketNotifier(static_cast<qintptr>(socket), type, this));
  connect(notifier.get(), &QSocketNotifier::activated, this,
          [this, socket, what] { Act(socket, what); });
  return notifier;
}

void CurlTransfer::Act(curl_socket_t socket, int what) {
  int running = 0;
  const CURLMcode code = curl_multi_socket_action(multi_.get(), socket, what, &running);
  Deliver();
  if (isOver_) return;
  if (code != CURLM_OK) {
    End(NetworkException(NetworkException::Cause::Connection, curl_multi_strerror(code)));
    return;
  }
  const CURLMsg* message = curl_multi_info_read(multi_.get(), &running);
  if (message != nullptr) End(FailureOf(message->data.result, Status()));
}

void CurlTransfer::Deliver() try {
  if (std::exchange(hasArrived_, false) && Received) Received(std::exchange(arrived_, {}));
} catch (const std::exception& error) {  // What was to be taken is lost.
  End(NetworkException(NetworkException::Cause::Storage, error.what()));
}

void CurlTransfer::Cancel() {
  isOver_ = true;
  if (multi_) curl_multi_remove_handle(multi_.get(), easy_.get());
  multi_.reset();  // With its connections. What has arrived can still be asked for.
}

void CurlTransfer::End(const std::optional<NetworkException>& failure) {
  if (isOver_) return;
  Cancel();
  if (Ended) Ended(failure);
}

}  // namespace peakwright

#include <algorithm>

#include <QNetworkInterface>

#include "runtime/transfers/curl_transfer.h"

namespace peakwright {
namespace {

bool IsConnected() {
  const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
  return interfaces.isEmpty() ||
         std::any_of(interfaces.begin(), interfaces.end(), [](const QNetworkInterface& each) {
           return each.flags().testFlag(QNetworkInterface::IsUp) &&
                  !each.flags().testFlag(QNetworkInterface::IsLoopBack);
         });
}

std::unique_ptr<Transfer> Begin(std::string_view method, std::string_view url,
                                bool validatesCertificate, std::int64_t longest) {
  return std::make_unique<CurlTransfer>(method, url, validatesCertificate, longest);
}

}  // namespace
}  // namespace peakwright

const peakwright::Transport* PeakwrightTransport() {
  static constexpr peakwright::Transport kTransport{&peakwright::IsConnected, &peakwright::Begin};
  return &kTransport;
}

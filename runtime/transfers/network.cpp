#include "runtime/network.h"

#include <algorithm>

#include <QNetworkInterface>

namespace peakwright {

bool Network::IsConnected() {
  const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
  return interfaces.isEmpty() ||
         std::any_of(interfaces.begin(), interfaces.end(), [](const QNetworkInterface& each) {
           return each.flags().testFlag(QNetworkInterface::IsUp) &&
                  !each.flags().testFlag(QNetworkInterface::IsLoopBack);
         });
}

}  // namespace peakwright

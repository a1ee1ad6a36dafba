#include "runtime/network.h"

#include <algorithm>
#include <utility>

#include <QNetworkInformation>
#include <QNetworkInterface>

namespace peakwright {
namespace {

std::function<bool()>& OtherAnswer() {
  static std::function<bool()> answer;
  return answer;
}

bool HasInterfaceUp() {
  const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
  return interfaces.isEmpty() ||
         std::any_of(interfaces.begin(), interfaces.end(), [](const QNetworkInterface& each) {
           return each.flags().testFlag(QNetworkInterface::IsUp) &&
                  !each.flags().testFlag(QNetworkInterface::IsLoopBack);
         });
}

}  // namespace

bool Network::IsConnected() {
  if (OtherAnswer()) return OtherAnswer()();
  using Reachability = QNetworkInformation::Reachability;
  auto system = Reachability::Unknown;
  if (QNetworkInformation::loadBackendByFeatures(QNetworkInformation::Feature::Reachability)) {
    system = QNetworkInformation::instance()->reachability();
  }
  if (system == Reachability::Unknown) return HasInterfaceUp();
  return system != Reachability::Disconnected;
}

void Network::AnswerWith(std::function<bool()> answer) { OtherAnswer() = std::move(answer); }

}  // namespace peakwright

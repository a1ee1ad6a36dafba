#include "runtime/network.h"

#include <algorithm>
#include <utility>

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

bool Network::IsConnected() { return OtherAnswer() ? OtherAnswer()() : HasInterfaceUp(); }

void Network::AnswerWith(std::function<bool()> answer) { OtherAnswer() = std::move(answer); }

}  // namespace peakwright

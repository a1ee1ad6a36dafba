#include "runtime/network.h"

#include "runtime/transfers/transfer.h"

namespace peakwright {

bool Network::IsConnected() { return LoadedTransport().IsConnected(); }

}  // namespace peakwright

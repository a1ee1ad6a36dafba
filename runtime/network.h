#pragma once

namespace peakwright {

/// The computer's connections to others.
class Network {
 public:
  /// Whether a network connection is available at all: false only if that is sure, with no
  /// interface up but loopback.
  static bool IsConnected();
};

}  // namespace peakwright

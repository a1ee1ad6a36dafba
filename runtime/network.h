#pragma once

#include <functional>

namespace peakwright {

class Network {
 public:
  /// Whether a network connection is available at all: false only if that is sure, with no
  /// interface up but loopback.
  static bool IsConnected();

  /// Puts `answer` in the place of the system's; an empty one gives the system its place back.
  static void AnswerWith(std::function<bool()> answer);
};

}  // namespace peakwright

#pragma once

#include <functional>

namespace peakwright {

class Network {
 public:
  /// Whether a network connection is available at all: the system's own answer, else whether an
  /// interface other than loopback is up. When in doubt, true.
  static bool IsConnected();

  /// Puts `answer` in the place of the system's; an empty one gives the system its place back.
  static void AnswerWith(std::function<bool()> answer);
};

}  // namespace peakwright

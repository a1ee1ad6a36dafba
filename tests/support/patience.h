#pragma once

#include <QTest>

namespace peakwright {

/// Waits until it holds, or longer than the busiest machine takes. Tells whether it does.
template <typename Condition>
bool WaitFor(const Condition& holds) {
  constexpr int kPatience = 60'000;  // ms
  return QTest::qWaitFor(holds, kPatience);
}

}  // namespace peakwright

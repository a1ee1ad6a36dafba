// Runs tests of the desktop without a display, unless the environment names one.
#include <gtest/gtest.h>

#include "runtime/application/guarded_application.h"

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const peakwright::GuardedApplication toolkit(argc, argv);
  return RUN_ALL_TESTS();
}

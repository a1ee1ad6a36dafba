// Runs tests of the desktop without a display, unless the environment names one.
#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const QApplication toolkit(argc, argv);
  return RUN_ALL_TESTS();
}

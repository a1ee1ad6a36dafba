// Runs tests of the desktop without a display, unless the environment names one, and out of reach
// of the user's files, printers, proxies and session.
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "runtime/application/guarded_application.h"

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QTemporaryDir home;
  for (const char* folder : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"}) {
    qputenv(folder, home.path().toUtf8());
  }
  // The library below keeps to the first server that it is told of.
  QFile::setPermissions(home.path(), QFile::Permissions(0x7755));
  qputenv("CUPS_SERVER", home.filePath("printers/socket").toUtf8());
  for (const char* other : {"DBUS_SESSION_BUS_ADDRESS", "https_proxy", "all_proxy"}) {
    qunsetenv(other);
  }
  testing::InitGoogleTest(&argc, argv);
  const peakwright::GuardedApplication toolkit(argc, argv);
  return RUN_ALL_TESTS();
}

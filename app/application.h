#pragma once

#include "runtime/desktop_application.h"

namespace peakwright {

/// Peakwright's application object. It sets the global strings before the first window opens.
class App : public DesktopApplication {
 public:
  App(int& argc, char** argv);

  /// Starts the program, runs it until the user quits, and gives its exit status.
  int Main();
  /// Brings up the main window, ready for events, without running the event loop.
  void BringUp();

 protected:
  void Event_Opening() override;
};

}  // namespace peakwright

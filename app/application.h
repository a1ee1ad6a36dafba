#pragma once

#include "runtime/desktop_application.h"
#include "update/update_window.h"

namespace peakwright {

/// Peakwright's application object. It sets the global strings before the first window opens.
class App : public DesktopApplication {
 public:
  /// The update window opens in `surroundings`, beside the main window.
  App(int& argc, char** argv, UpdateSurroundings surroundings = {});

 protected:
  void Event_Opening() override;
  void MakeDefaultView() override;

 private:
  UpdateSurroundings surroundings_;
};

}  // namespace peakwright

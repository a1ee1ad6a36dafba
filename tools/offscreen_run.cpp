// Starts the program in its real windows, runs the start mass, prints the results text, and saves a
// picture of the window: for a machine that has no display.
//
//   offscreen_run PICTURE.png

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>

#include <QApplication>
#include <QWidget>

#include "app/application.h"
#include "runtime/application/toolkit_side.h"
#include "ui/text_window.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: offscreen_run PICTURE.png\n";
    return EXIT_FAILURE;
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  peakwright::App app(argc, argv);
  app.Start();

  auto& window = peakwright::TextWindow::Instance();
  window.PushButton2.Press();
  window.Pushbutton1.Press();
  QApplication::processEvents();

  std::string results = window.textfield2.Text();
  std::replace(results.begin(), results.end(), '\r', '\n');
  std::cout << results;
  return peakwright::ToolkitSide::Of(window)->grab().save(argv[1]) ? EXIT_SUCCESS : EXIT_FAILURE;
}

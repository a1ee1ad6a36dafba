// Saves a picture of each of the program's windows, as they stand in the middle of a day's work.
//
//   window_pictures DIRECTORY [dark]

#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include <QApplication>
#include <QWidget>

#include "app/application.h"
#include "runtime/appearance/appearance.h"
#include "runtime/application/toolkit_side.h"
#include "ui/additional_elements_window.h"
#include "ui/edit_element_window.h"
#include "ui/isotopes_window.h"
#include "ui/text_window.h"
#include "update/update_window.h"

namespace {

bool Save(const peakwright::DesktopWindow& window, const std::string& file) {
  QApplication::processEvents();
  return peakwright::ToolkitSide::Of(window)->grab().save(QString::fromStdString(file));
}

}  // namespace

int main(int argc, char** argv) {
  using namespace peakwright;
  const bool dark = argc == 3 && std::string_view(argv[2]) == "dark";
  if (argc != 2 && !dark) {
    std::cerr << "usage: window_pictures DIRECTORY [dark]\n";
    return EXIT_FAILURE;
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const std::string directory = std::string(argv[1]) + "/";
  App app(argc, argv);
  ShowAppearance(dark);
  app.Start();

  TextWindow& main = TextWindow::Instance();
  main.textfield1.Text("58");
  main.Pushbutton1.Press();
  main.CheckBox2.Value(true);
  Window1::Instance().textfield1(1).Text("1");
  Window3::Instance().Show();
  Window3::Instance().ListBox1.SelectedRowIndex(5);
  Window2::Instance().Edit(5);
  main.CheckForUpdates();
  const bool saved = Save(main, directory + "main_window.png") &&
                     Save(Window1::Instance(), directory + "additional_elements.png") &&
                     Save(Window2::Instance(), directory + "edit_element.png") &&
                     Save(Window3::Instance(), directory + "isotopes.png") &&
                     Save(WindowDownload::Instance(), directory + "update.png");
  return saved ? EXIT_SUCCESS : EXIT_FAILURE;
}

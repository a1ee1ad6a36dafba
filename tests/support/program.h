#pragma once

#include <string>
#include <utility>
#include <vector>

#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

#include "app/application.h"
#include "runtime/application/toolkit_side.h"
#include "ui/additional_elements_window.h"
#include "ui/edit_element_window.h"
#include "ui/isotopes_window.h"
#include "ui/menu.h"
#include "ui/text_window.h"

namespace peakwright {

using Controls = std::vector<const DesktopUIControl*>;

/// The program, started as its user starts it, here without a network, and the user's hands on it.
class Program : public App {
 public:
  explicit Program(UpdateSurroundings surroundings = {.IsConnected = [] { return false; }})
      : App(argumentCount_, &arguments_, std::move(surroundings)) {
    Start();
  }

  TextWindow& Main() const { return TextWindow::Instance(); }
  std::string Results() const { return Main().textfield2.Text(); }
  const std::string& LastException() const { return lastException_; }

  static void Focus(const DesktopUIControl& control) {
    ToolkitSide::Of(control)->window()->activateWindow();
    ToolkitSide::Of(control)->setFocus();
    QApplication::processEvents();
  }

  static void Click(const DesktopUIControl& control) {
    QTest::mouseClick(ToolkitSide::Of(control), Qt::LeftButton, {},
                      {8, ToolkitSide::Of(control)->height() / 2});
  }

  static void Key(const DesktopUIControl& control, Qt::Key key, Qt::KeyboardModifiers with = {}) {
    Focus(control);
    QTest::keyClick(ToolkitSide::Of(control), key, with);
  }

  static void Type(const DesktopUIControl& control, const char* text) {
    Focus(control);
    QTest::keyClick(ToolkitSide::Of(control), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(ToolkitSide::Of(control), QString::fromUtf8(text));
  }

  static void Choose(const char* menuItem) {
    ToolkitSide::Of(*Menu::Instance().Lookup(menuItem))->trigger();
  }
  static bool Marked(const char* menuItem) {
    return ToolkitSide::Of(*Menu::Instance().Lookup(menuItem))->isChecked();
  }
  /// The box that shows exceptions, or null.
  static QMessageBox* Box() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (auto* box = qobject_cast<QMessageBox*>(widget); box && box->isVisible()) return box;
    }
    return nullptr;
  }
  static bool Shown(const DesktopWindow& window) { return ToolkitSide::Of(window)->isVisible(); }

 protected:
  void UnhandledException(const std::string& what) override { lastException_ = what; }

 private:
  inline static int argumentCount_ = 0;
  inline static char* arguments_ = nullptr;
  std::string lastException_;
};

/// A test of the program as it starts.
class ProgramTest : public testing::Test {
 protected:
  Program program_;
  TextWindow& main_ = program_.Main();
  const std::string start_ = program_.Results();
};

}  // namespace peakwright

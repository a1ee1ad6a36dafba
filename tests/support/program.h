#pragma once

#include <string>
#include <vector>

#include <QAction>
#include <QApplication>
#include <QTest>
#include <QWidget>

#include "app/application.h"
#include "ui/additional_elements_window.h"
#include "ui/edit_element_window.h"
#include "ui/isotopes_window.h"
#include "ui/menu.h"
#include "ui/text_window.h"

namespace peakwright {

using Controls = std::vector<const DesktopUIControl*>;

/// The program, started as its user starts it, and the user's hands on it.
class Program : public App {
 public:
  Program() : App(argumentCount_, &arguments_) { BringUp(); }

  TextWindow& Main() const { return TextWindow::Instance(); }
  std::string Results() const { return Main().textfield2.Text(); }
  const std::string& LastException() const { return lastException_; }

  static void Focus(const DesktopUIControl& control) {
    control.Native()->window()->activateWindow();
    control.Native()->setFocus();
    QApplication::processEvents();
  }

  static void Click(const DesktopUIControl& control) {
    QTest::mouseClick(control.Native(), Qt::LeftButton, {}, {8, control.Native()->height() / 2});
  }

  static void Key(const DesktopUIControl& control, Qt::Key key, Qt::KeyboardModifiers with = {}) {
    Focus(control);
    QTest::keyClick(control.Native(), key, with);
  }

  static void Type(const DesktopUIControl& control, const char* text) {
    Focus(control);
    QTest::keyClick(control.Native(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(control.Native(), QString::fromUtf8(text));
  }

  static void Choose(const char* menuItem) {
    Menu::Instance().Lookup(menuItem)->Native()->trigger();
  }
  static bool Marked(const char* menuItem) {
    return Menu::Instance().Lookup(menuItem)->HasCheckMark();
  }
  static bool Shown(const DesktopWindow& window) { return window.Native()->isVisible(); }

 protected:
  void UnhandledException(const std::string& what) override { lastException_ = what; }

 private:
  inline static int argumentCount_ = 0;
  inline static char* arguments_ = nullptr;
  std::string lastException_;
};

}  // namespace peakwright

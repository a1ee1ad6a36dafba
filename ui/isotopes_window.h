#pragma once

#include "engine/element_table.h"
#include "runtime/desktop_button.h"
#include "runtime/desktop_label.h"
#include "runtime/desktop_list_box.h"
#include "runtime/desktop_window.h"
#include "ui/element_cells.h"

namespace peakwright {

/// "Isotopes": shows the element table, which lives here, on screen or hidden.
class Window3 : public DesktopWindow {
 private:
  ElementTable table_;
  ElementCells cells_{table_};

 public:
  Window3();
  static Window3& Instance();

  /// The table that every run reads. It is changed through ListBox1 only.
  const ElementTable& Table() const { return table_; }

  DesktopListBox ListBox1;    ///< The element table, under its headings.
  DesktopButton PushButton1;  ///< "Close"
  DesktopLabel Label1;        ///< "Double click a row to open editor for that row."

 protected:
  void Event_Opening() override;

 private:
  void ListBox1_DoublePressed();
  void PushButton1_Pressed();
};

}  // namespace peakwright

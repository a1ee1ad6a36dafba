#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "runtime/desktop_ui_control.h"

namespace peakwright {

/// The cells that a list box shows. The list box keeps no copy of them.
class ListBoxCells {
 public:
  virtual ~ListBoxCells() = default;
  virtual int RowCount() const = 0;
  virtual int ColumnCount() const = 0;
  virtual std::string HeaderAt(int column) const = 0;
  virtual std::string CellTextAt(int row, int column) const = 0;
  virtual void CellTextAt(int row, int column, std::string_view text) = 0;
};

/// A grid of text cells under headings, of which one row at most is selected. Rows stay in order,
/// and the user can't edit them in place.
class DesktopListBox : public DesktopUIControl {
 public:
  /// Requires: `cells` outlive the list box, and change only through it.
  DesktopListBox(DesktopWindow& window, const ControlLayout& layout, ListBoxCells& cells);
  ~DesktopListBox() override;

  int RowCount() const { return cells_.RowCount(); }
  int ColumnCount() const { return cells_.ColumnCount(); }
  std::string HeaderAt(int column) const { return cells_.HeaderAt(column); }
  std::string CellTextAt(int row, int column) const { return cells_.CellTextAt(row, column); }
  void CellTextAt(int row, int column, std::string_view text);

  int SelectedRowIndex() const;    ///< -1 with no row selected.
  void SelectedRowIndex(int row);  ///< -1 selects no row.

  /// Raised by a double click on a row, or by Return or Space on the selected one.
  std::function<void()> DoublePressed;

 private:
  class Model;
  ListBoxCells& cells_;
  std::unique_ptr<Model> model_;
};

}  // namespace peakwright

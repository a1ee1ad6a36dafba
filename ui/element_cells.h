#pragma once

#include "engine/element_table.h"
#include "runtime/desktop_list_box.h"

namespace peakwright {

/// The element table as the cells of a list box: a view of the table, not a copy.
class ElementCells : public ListBoxCells {
 public:
  /// Requires: `table` outlives the cells.
  explicit ElementCells(ElementTable& table) : table_(table) {}

  int RowCount() const override { return table_.RowCount(); }
  int ColumnCount() const override { return table_.ColumnCount(); }
  std::string HeaderAt(int column) const override { return table_.HeaderAt(column); }
  std::string CellTextAt(int row, int column) const override {
    return table_.CellTextAt(row, column);
  }
  void CellTextAt(int row, int column, std::string_view text) override {
    table_.CellTextAt(row, column, std::string(text));
  }

 private:
  ElementTable& table_;
};

}  // namespace peakwright

#pragma once

#include <string>
#include <vector>

namespace peakwright {

/// The elements that a run counts with, as the text that the user sees and edits: the
/// store of record. Nothing is validated here; a run reads numbers out of the text afresh.
/// Rows and columns count from 0. Requires: every index given is in range.
class ElementTable {
 public:
  /// Holds the default elements.
  ElementTable();

  int RowCount() const { return static_cast<int>(rows_.size()); }
  int ColumnCount() const { return static_cast<int>(headings_.size()); }
  const std::string& HeaderAt(int column) const;
  const std::string& CellTextAt(int row, int column) const;
  void CellTextAt(int row, int column, std::string text);

 private:
  using Cells = std::vector<std::string>;

  Cells headings_;
  std::vector<Cells> rows_;
};

}  // namespace peakwright

#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "runtime/desktop_ui_control.h"

namespace peakwright {

/// A menu of rows that pops up from a box, which shows the selected row.
class DesktopPopupMenu : public DesktopUIControl {
 public:
  /// The layout's text is the first row, and is selected.
  DesktopPopupMenu(DesktopWindow& window, const ControlLayout& layout);

  int RowCount() const;
  std::string RowTextAt(int row) const;
  void AddRow(std::string_view text);
  void AddRowAt(int row, std::string_view text);  ///< The rows behind it move down.
  void RemoveRowAt(int row);

  int SelectedRowIndex() const;
  void SelectedRowIndex(int row);  ///< Raises no event.

  /// Raised when the user chooses a row, also when it is the row that was chosen already.
  std::function<void()> SelectionChanged;
};

}  // namespace peakwright

#include "engine/elements.h"

#include <array>

#include "engine/number_text.h"

namespace peakwright {

Elements::Elements(const ElementTable& table) : count(static_cast<std::size_t>(table.RowCount())) {
  elementName.emplace_back();
  for (int row = 0; row < table.RowCount(); ++row) {
    elementName.push_back(table.CellTextAt(row, 0));
  }
  const std::array columns = {&unitMass, &exactMass, &valence, &peakM1, &peakM2};
  static_assert(1 + columns.size() == kElementColumns, "the name and an array for each number");
  int column = 1;
  for (std::vector<float>* numbers : columns) {
    numbers->push_back(0);
    for (int row = 0; row < table.RowCount(); ++row) {
      numbers->push_back(static_cast<float>(Val(table.CellTextAt(row, column))));
    }
    ++column;
  }
}

}  // namespace peakwright

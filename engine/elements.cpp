#include "engine/elements.h"

#include "engine/number_text.h"

namespace peakwright {

Elements::Elements(const ElementTable& table) : count(static_cast<std::size_t>(table.RowCount())) {
  elementName.emplace_back();
  for (int row = 0; row < table.RowCount(); ++row) {
    elementName.push_back(table.CellTextAt(row, 0));
  }
  int column = 1;
  for (std::vector<float>* numbers : {&unitMass, &exactMass, &valence, &peakM1, &peakM2}) {
    numbers->push_back(0);
    for (int row = 0; row < table.RowCount(); ++row) {
      numbers->push_back(static_cast<float>(Val(table.CellTextAt(row, column))));
    }
    ++column;
  }
}

}  // namespace peakwright

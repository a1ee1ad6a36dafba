#include "engine/element_table.h"

#include <algorithm>
#include <cassert>
#include <string_view>
#include <utility>

#include "engine/default_elements.h"

namespace peakwright {
namespace {

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find(separator, start), text.size());
    pieces.emplace_back(text.substr(start, end - start));
    start = end + 1;
  }
  return pieces;
}

std::size_t Index(int i, int end) {
  assert(i >= 0 && i < end);
  static_cast<void>(end);
  return static_cast<std::size_t>(i);
}

}  // namespace

ElementTable::ElementTable() {
  for (const std::string& line : Split(kInitialElements, '\r')) {
    if (headings_.empty()) {
      headings_ = Split(line, '\t');
    } else {
      rows_.push_back(Split(line, '\t'));
    }
  }
}

const std::string& ElementTable::HeaderAt(int column) const {
  return headings_[Index(column, ColumnCount())];
}

const std::string& ElementTable::CellTextAt(int row, int column) const {
  return rows_[Index(row, RowCount())][Index(column, ColumnCount())];
}

void ElementTable::CellTextAt(int row, int column, std::string text) {
  rows_[Index(row, RowCount())][Index(column, ColumnCount())] = std::move(text);
}

}  // namespace peakwright

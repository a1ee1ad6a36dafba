#include "engine/element_table.h"

#include <algorithm>
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

std::size_t Index(int i) { return static_cast<std::size_t>(i); }

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

const std::string& ElementTable::HeaderAt(int column) const { return headings_[Index(column)]; }

const std::string& ElementTable::CellTextAt(int row, int column) const {
  return rows_[Index(row)][Index(column)];
}

void ElementTable::CellTextAt(int row, int column, std::string text) {
  rows_[Index(row)][Index(column)] = std::move(text);
}

}  // namespace peakwright

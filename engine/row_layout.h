#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>

#include "engine/cell_writer.h"

/// A report row: the masks of its cells, one behind the other, and where they begin.
namespace peakwright {

inline constexpr CellMask kNumberMask("####)");
inline constexpr CellMask kExactMask(" ###.0000");
inline constexpr CellMask kCountMask(" ##");
inline constexpr CellMask kM1Mask(" ###.00");
inline constexpr CellMask kM2Mask(" ###.00");
inline constexpr CellMask kRdbMask(" ##.0");

inline constexpr std::size_t kNumber = 0;
inline constexpr std::size_t kExact = kNumber + kNumberMask.text.size();
inline constexpr std::size_t kCountC = kExact + kExactMask.text.size();
inline constexpr std::size_t kCountH = kCountC + kCountMask.text.size();
inline constexpr std::size_t kCountN = kCountH + kCountMask.text.size();
inline constexpr std::size_t kCountO = kCountN + kCountMask.text.size();
inline constexpr std::size_t kM1 = kCountO + kCountMask.text.size();
inline constexpr std::size_t kM2 = kM1 + kM1Mask.text.size();
inline constexpr std::size_t kRdb = kM2 + kM2Mask.text.size();
inline constexpr std::size_t kRowWidth = kRdb + kRdbMask.text.size();

/// The row without its digits: only the bracket and the points.
inline constexpr auto kBlankRow = [] {
  std::array<char, kRowWidth> row{};
  row.fill(' ');
  row[kNumber + kNumberMask.places] = ')';
  row[kExact + kExactMask.places] = row[kRdb + kRdbMask.places] = '.';
  row[kM1 + kM1Mask.places] = row[kM2 + kM2Mask.places] = '.';
  return row;
}();

}  // namespace peakwright

#pragma once

#include <cstddef>
#include <string_view>

#include "engine/cell_writer.h"

/// A report row: where its cells begin, and their masks.
namespace peakwright {

/// The row without its digits.
inline constexpr std::string_view kBlankRow = "    )    .                    .      .     . ";

inline constexpr std::size_t kNumber = 0;
inline constexpr std::size_t kExact = 5;
inline constexpr std::size_t kCountC = 14;
inline constexpr std::size_t kCountH = 17;
inline constexpr std::size_t kCountN = 20;
inline constexpr std::size_t kCountO = 23;
inline constexpr std::size_t kM1 = 26;
inline constexpr std::size_t kM2 = 33;
inline constexpr std::size_t kRdb = 40;

inline constexpr CellMask kNumberMask("####)");
inline constexpr CellMask kExactMask(" ###.0000");
inline constexpr CellMask kCountMask(" ##");
inline constexpr CellMask kPeakMask(" ###.00");
inline constexpr CellMask kRdbMask(" ##.0");

}  // namespace peakwright

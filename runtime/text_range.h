#pragma once

#include <cstddef>

namespace peakwright {

/// A part of a text, in bytes.
struct TextRange {
  std::size_t From = 0;
  std::size_t Length = 0;
};

}  // namespace peakwright

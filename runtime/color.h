#pragma once

#include <cstdint>

namespace peakwright {

/// A colour, and what the system says of colours.
struct Color {
  std::uint32_t rgb = 0;  ///< 0xRRGGBB

  /// Whether the system currently shows the dark appearance.
  static bool IsDarkMode();
};

}  // namespace peakwright

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/default_elements.h"
#include "engine/element_table.h"

namespace peakwright {

/// Positions of the elements in a run's arrays. The position makes the element, not its name.
inline constexpr std::size_t kC = 1;
inline constexpr std::size_t kH = 2;
inline constexpr std::size_t kN = 3;
inline constexpr std::size_t kO = 4;

/// The rows of the table that these four are read from come first; all others are additional
/// elements.
inline constexpr int kCoreElementCount = 4;
inline constexpr int kAdditionalElementCount = kElementCount - kCoreElementCount;
inline constexpr std::size_t kFirstAdditional = kCoreElementCount + 1;
static_assert(kO == kCoreElementCount);

/// The element table as one run reads it. The arrays are indexed from 1, by row of the table + 1.
/// The numbers are Singles, and these, not the typed decimals, are what all arithmetic uses.
struct Elements {
  explicit Elements(const ElementTable& table);

  std::size_t count;  ///< Highest index.
  std::vector<std::string> elementName;
  std::vector<float> unitMass;   ///< u, of the main isotope
  std::vector<float> exactMass;  ///< u, of the main isotope
  std::vector<float> valence;    ///< bonds that an atom forms
  std::vector<float> peakM1;     ///< percent of M, per atom
  std::vector<float> peakM2;     ///< percent of M, per atom
};

}  // namespace peakwright

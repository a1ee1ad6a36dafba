#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace peakwright {

/// The element table that the program starts with: cells parted by tabs, lines by carriage returns,
/// the headings first. Masses are in u, valences in bonds, peak ratios in percent of M per atom.
/// Where the ratios were taken from is not recorded; they agree with isotope abundances of the
/// 1950s and 1960s, O-18 left out. docs/element_data.md sets them beside current ones, with
/// sources, and repeats the table.
inline constexpr std::string_view kInitialElements =
    "Name\tUnit mass\tExact mass\tValence\t%(M+1)/M\t%(M+2)/M\r"
    "C\t12\t12.0000\t4\t1.120\t0\r"
    "H\t1\t1.007825\t1\t0.0156\t0\r"
    "N\t14\t14.00307\t3\t0.366\t0\r"
    "O\t16\t15.99491\t2\t0.037\t0\r"
    "F\t19\t18.9984\t1\t0\t0\r"
    "Cl\t35\t34.96885\t1\t0\t32.40\r"
    "Br\t79\t78.9183\t1\t0\t97.86\r"
    "I\t127\t126.9044\t1\t0\t0\r"
    "Si\t28\t27.97693\t4\t5.10\t3.35\r"
    "P\t31\t30.9738\t3\t0\t0\r"
    "S\t32\t31.9721\t2\t0.80\t4.44\r"
    "X\t0\t0\t0\t0\t0\r"
    "Xx\t0\t0\t0\t0\t0";

/// Number of elements, and of cells that each has.
inline constexpr auto kElementCount =
    static_cast<int>(std::count(kInitialElements.begin(), kInitialElements.end(), '\r'));
inline constexpr int kElementColumns = [] {
  const auto end = std::find(kInitialElements.begin(), kInitialElements.end(), '\r');
  return static_cast<int>(std::count(kInitialElements.begin(), end, '\t')) + 1;
}();
static_assert(std::count(kInitialElements.begin(), kInitialElements.end(), '\t') ==
                  std::ptrdiff_t{kElementCount + 1} * (kElementColumns - 1),
              "each line has as many cells as the headings");

}  // namespace peakwright

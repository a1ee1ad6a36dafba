#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "engine/sums.h"
#include "engine/unit_masses.h"

namespace peakwright {

/// Formulas of one number of C, with at most 9999 atoms of each element, that are worked out
/// together: an array for each of their numbers, so that the compiler can take several at a time.
struct FormulaBatch {
  static constexpr std::size_t kCapacity = 128;

  template <typename T>
  using Each = std::array<T, kCapacity>;

  /// A value of each formula as the digits of its cell.
  struct Column {
    Each<std::uint32_t> whole;
    Each<std::uint32_t> fraction;
  };

  /// Adds formulas of so many O whose N rises from `firstN`: `count` of them, or as many as there
  /// is room for. Tells how many.
  std::int32_t Add(std::int32_t atomsO, std::int32_t firstN, std::int32_t count) {
    const std::int32_t added = std::min(count, static_cast<std::int32_t>(kCapacity - size));
    for (std::int32_t i = 0; i < added; ++i, ++size) {
      o[size] = atomsO;
      n[size] = firstN + i;
    }
    return added;
  }

  /// Works out the numbers below from those above; the batch must not be empty. Tells whether all
  /// values are from 0 up to below 9999; if not, there are no digits of them.
  bool WorkOut(const UnitMasses& masses, const Sums& sums);

  std::int32_t c = 0;
  std::size_t size = 0;  ///< number of formulas
  Each<std::int32_t> o{};
  Each<std::int32_t> n{};

  Each<std::int32_t> h{};
  Each<float> rdb{};
  Column exactDigits{};  ///< mass of the whole formula, u
  Column m1Digits{};     ///< M+1, percent of M
  Column m2Digits{};     ///< M+2, percent of M
  Column rdbDigits{};    ///< rings and double bonds
};

}  // namespace peakwright

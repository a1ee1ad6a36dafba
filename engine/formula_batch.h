#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "engine/cell_writer.h"
#include "engine/row_layout.h"
#include "engine/sums.h"
#include "engine/unit_masses.h"

namespace peakwright {

/// Formulas that are worked out together: an array for each of their numbers, so that the compiler
/// can take several at a time.
struct FormulaBatch {
  static constexpr std::size_t kCapacity = 128;

  template <typename T>
  using Each = std::array<T, kCapacity>;

  /// A value of each formula, and the digits of its cell by one mask.
  template <const CellMask& kMask>
  struct Column {
    Each<float> value;  ///< if plain, with the whole part that the cell shows
    bool plain;         ///< all are finite and none is negative; else there are no digits
    Each<std::uint32_t> whole;
    Each<std::uint32_t> fraction;

    /// Works out the digits of the values below `end`.
    void Split(std::size_t end);
    /// Writes the cell of formula `i`; `kPlain` if the column is known to be plain.
    template <bool kPlain>
    void Write(char* cell, std::size_t i) const {
      if (kPlain || plain) return WriteDigits(cell, kMask, whole[i], fraction[i]);
      WriteCell<kMask>(cell, value[i]);
    }
  };

  /// Adds formulas of so many C and O whose N rises from `firstN`: `count` of them, or as many as
  /// there is room for. Returns how many it has added.
  std::int64_t Add(std::int64_t atomsC, std::int64_t atomsO, std::int64_t firstN,
                   std::int64_t count) {
    const std::int64_t added = std::min(count, static_cast<std::int64_t>(kCapacity - size));
    for (std::int64_t i = 0; i < added; ++i, ++size) {
      c[size] = atomsC;
      o[size] = atomsO;
      n[size] = firstN + i;
    }
    return added;
  }

  /// Drops the formulas that aren't valid. Requires: the batch isn't empty.
  void KeepValid(const UnitMasses& masses, const Sums& sums, bool nitrogenRule);

  /// Works out the numbers below from those above. Requires: the batch isn't empty.
  void WorkOut(const UnitMasses& masses, const Sums& sums) {
    Calculate(masses, sums, 0, Numbers::kAll);
  }

  std::size_t size = 0;   ///< number of formulas
  bool fewAtoms = true;   ///< none has more than 9999 atoms of an element
  std::size_t valid = 0;  ///< how many from the first on are known to be valid
  Each<std::int64_t> c{};
  Each<std::int64_t> o{};
  Each<std::int64_t> n{};

  Each<std::int64_t> h{};
  Column<kExactMask> exact{};  ///< mass of the whole formula, u
  Column<kM1Mask> m1{};        ///< M+1, percent of M
  Column<kM2Mask> m2{};        ///< M+2, percent of M
  Column<kRdbMask> rdb{};      ///< rings and double bonds

 private:
  enum class Numbers { kRdbAlone, kAll };
  void Calculate(const UnitMasses& masses, const Sums& sums, std::size_t first, Numbers numbers);
};

}  // namespace peakwright

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "engine/elements.h"
#include "engine/sums.h"

namespace peakwright {

/// Formulas that are worked out together: one array for each number of a formula, so that the
/// compiler can take several formulas at a time.
class FormulaBatch {
 public:
  static constexpr std::size_t kCapacity = 64;

  /// The numbers of a formula that its report row shows.
  struct Formulas {
    template <typename T>
    using Each = std::array<T, kCapacity>;

    Each<std::int64_t> c, h, n, o;
    Each<float> exact;  ///< mass of the whole formula, u
    Each<float> m1;     ///< M+1, percent of M
    Each<float> m2;     ///< M+2, percent of M
    Each<float> rdb;    ///< rings and double bonds
  };

  FormulaBatch(const Elements& elements, const AdditionalTotals& totals);

  std::size_t Size() const { return size_; }
  bool Full() const { return size_ == kCapacity; }

  /// Adds the formula of these counts. The batch must not be full.
  void Add(std::int64_t c, std::int64_t h, std::int64_t n, std::int64_t o) {
    formulas_.c[size_] = c;
    formulas_.h[size_] = h;
    formulas_.n[size_] = n;
    formulas_.o[size_] = o;
    atomsC_[size_] = static_cast<double>(c);
    atomsH_[size_] = static_cast<double>(h);
    atomsN_[size_] = static_cast<double>(n);
    atomsO_[size_] = static_cast<double>(o);
    ++size_;
  }

  /// Works out the sums of all formulas and gives them.
  const Formulas& WorkOut();

  void Clear() { size_ = 0; }

 private:
  using Atoms = std::array<double, kCapacity>;

  Atom carbon_;
  Atom hydrogen_;
  Atom nitrogen_;
  Atom oxygen_;
  AdditionalTotals totals_;
  std::size_t size_ = 0;
  Formulas formulas_{};
  Atoms atomsC_{};
  Atoms atomsH_{};
  Atoms atomsN_{};
  Atoms atomsO_{};
};

}  // namespace peakwright

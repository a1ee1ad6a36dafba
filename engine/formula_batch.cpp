#include "engine/formula_batch.h"

#include <cassert>
#include <limits>

namespace peakwright {
namespace {

template <typename T>
using Each = FormulaBatch::Each<T>;

/// The counts of a batch as the sums take them.
struct Atoms {
  /// Takes those of the formulas from `first` to below `end`, and works out their H. A `Count` must
  /// hold each of them; the processor takes more of a narrow one at a time.
  template <typename Count>
  void Take(FormulaBatch& batch, const UnitMasses& masses, std::size_t first, std::size_t end) {
    for (std::size_t i = first; i < end; ++i) {
      c[i] = static_cast<double>(static_cast<Count>(batch.c[i]));
      o[i] = static_cast<double>(static_cast<Count>(batch.o[i]));
      n[i] = static_cast<double>(static_cast<Count>(batch.n[i]));
      const double left = masses.Left(c[i], o[i], n[i]);
      if constexpr (sizeof(Count) < sizeof(std::int64_t)) {
        batch.h[i] = static_cast<Count>(left);
      } else {
        batch.h[i] = Truncate(left);
      }
      h[i] = static_cast<double>(static_cast<Count>(batch.h[i]));
    }
  }

  void Take(FormulaBatch& batch, const UnitMasses& masses, std::size_t first, std::size_t end) {
    if (batch.fewAtoms) {
      Take<std::int32_t>(batch, masses, first, end);
    } else {
      Take<std::int64_t>(batch, masses, first, end);
    }
  }

  Each<double> c;
  Each<double> o;
  Each<double> n;
  Each<double> h;
};

/// Makes whole groups of eight formulas, which the processor can take at a time: those behind the
/// last one repeat it. Returns where the groups end.
std::size_t FillGroups(FormulaBatch& batch) {
  constexpr std::size_t kGroup = 8;
  static_assert(FormulaBatch::kCapacity % kGroup == 0);
  const std::size_t size = batch.size;
  assert(size > 0);
  const std::size_t end = (size + kGroup - 1) / kGroup * kGroup;
  for (Each<std::int64_t>* counts : {&batch.c, &batch.o, &batch.n}) {
    std::fill(counts->begin() + size, counts->begin() + end, (*counts)[size - 1]);
  }
  return end;
}

}  // namespace

template <const CellMask& kMask>
void FormulaBatch::Column<kMask>::Split(std::size_t end) {
  std::uint32_t highest = 0;
  for (std::size_t i = 0; i < end; ++i) highest = std::max(highest, Bits(value[i]));
  plain = highest < Bits(std::numeric_limits<float>::infinity());
  if (!plain) return;
  if (highest >= Bits(10000)) {
    for (std::size_t i = 0; i < end; ++i) value[i] = Shown(value[i]);
  }
  for (std::size_t i = 0; i < end; ++i) {
    const std::uint32_t units = InUnits(value[i], kMask.scale);
    whole[i] = units / kMask.scale;
    fraction[i] = units % kMask.scale;
  }
}

// GCC compiles it twice, and the start of the program chooses: twice the formulas at a time take
// half the time, with the same digits. Under the sanitizers it is the plain one, so that the tests
// see both.
#if defined(__x86_64__) && defined(__gnu_linux__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__)
[[gnu::target_clones("avx2", "default"), gnu::flatten]]
#endif
void FormulaBatch::Calculate(const UnitMasses& givenMasses, const Sums& givenSums,
                             std::size_t first, Numbers numbers) {
  // Copies, as the arrays might overlap what a reference refers to.
  const UnitMasses masses = givenMasses;
  const Sums sums = givenSums;
  const std::size_t end = FillGroups(*this);
  Atoms atoms;
  atoms.Take(*this, masses, first, end);
  for (std::size_t i = first; i < end; ++i) {
    rdb.value[i] = sums.Rdb(atoms.c[i], atoms.h[i], atoms.n[i]);
  }
  if (numbers == Numbers::kRdbAlone) return;
  for (std::size_t i = 0; i < end; ++i) {
    exact.value[i] = sums.ExactMass(atoms.c[i], atoms.h[i], atoms.n[i], atoms.o[i]);
  }
  for (std::size_t i = 0; i < end; ++i) {
    m1.value[i] = sums.M1(atoms.c[i], atoms.h[i], atoms.n[i], atoms.o[i]);
  }
  for (std::size_t i = 0; i < end; ++i) {
    m2.value[i] = sums.M2(m1.value[i], atoms.c[i], atoms.h[i], atoms.n[i], atoms.o[i]);
  }
  exact.Split(end);
  m1.Split(end);
  m2.Split(end);
  rdb.Split(end);
}

void FormulaBatch::KeepValid(const UnitMasses& masses, const Sums& sums, bool nitrogenRule) {
  Calculate(masses, sums, valid, Numbers::kRdbAlone);
  for (std::size_t i = valid; i < size; ++i) {
    c[valid] = c[i];
    o[valid] = o[i];
    n[valid] = n[i];
    valid += IsValid(rdb.value[i], nitrogenRule) ? 1 : 0;
  }
  size = valid;
}

}  // namespace peakwright

#include "engine/formula_batch.h"

#include <limits>

#include "engine/cell_writer.h"
#include "engine/row_layout.h"

namespace peakwright {
namespace {

template <typename T>
using Each = FormulaBatch::Each<T>;

/// The counts of a batch as the sums take them.
struct Atoms {
  /// Of the formulas from `first` to below `lanes`, whose H is worked out. Counts go through
  /// `Count`, which must hold them: of the narrower one more go into a step.
  template <typename Count>
  void Take(FormulaBatch& batch, const UnitMasses& masses, std::size_t first, std::size_t lanes) {
    for (std::size_t i = first; i < lanes; ++i) {
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

  void Take(FormulaBatch& batch, const UnitMasses& masses, std::size_t first, std::size_t lanes) {
    if (batch.fewAtoms) {
      Take<std::int32_t>(batch, masses, first, lanes);
    } else {
      Take<std::int64_t>(batch, masses, first, lanes);
    }
  }

  Each<double> c;
  Each<double> o;
  Each<double> n;
  Each<double> h;
};

/// Makes whole groups of lanes: those behind the last formula repeat it. Tells their number.
std::size_t FillLanes(FormulaBatch& batch) {
  constexpr std::size_t kGroup = 8;
  static_assert(FormulaBatch::kCapacity % kGroup == 0);
  const std::size_t size = batch.size;
  const std::size_t lanes = (size + kGroup - 1) / kGroup * kGroup;
  for (Each<std::int64_t>* counts : {&batch.c, &batch.o, &batch.n}) {
    std::fill(counts->begin() + size, counts->begin() + lanes, (*counts)[size - 1]);
  }
  return lanes;
}

template <std::uint32_t kScale>
void Split(FormulaBatch::Column& column, std::size_t lanes) {
  std::uint32_t highest = 0;
  for (std::size_t i = 0; i < lanes; ++i) highest = std::max(highest, Rank(column.value[i]));
  column.plain = highest < Rank(std::numeric_limits<float>::infinity());
  if (!column.plain) return;
  if (highest >= Rank(10000)) {
    for (std::size_t i = 0; i < lanes; ++i) column.value[i] = Shown(column.value[i]);
  }
  for (std::size_t i = 0; i < lanes; ++i) {
    const std::uint32_t units = InUnits(column.value[i], kScale);
    column.whole[i] = units / kScale;
    column.fraction[i] = units % kScale;
  }
}

}  // namespace

// GCC compiles it twice, and the start of the program chooses: twice the lanes a step take half the
// time, with the same digits. Under the sanitizers it is the plain one, so that the tests see both.
#if defined(__x86_64__) && defined(__gnu_linux__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__)
[[gnu::target_clones("avx2", "default"), gnu::flatten]]
#endif
void FormulaBatch::Calculate(const UnitMasses& givenMasses, const Sums& givenSums,
                             std::size_t first, Numbers numbers) {
  // Copies, as the arrays might overlap what a reference refers to.
  const UnitMasses masses = givenMasses;
  const Sums sums = givenSums;
  const std::size_t lanes = FillLanes(*this);
  Atoms atoms;
  atoms.Take(*this, masses, first, lanes);
  for (std::size_t i = first; i < lanes; ++i) {
    rdb.value[i] = sums.Rdb(atoms.c[i], atoms.h[i], atoms.n[i]);
  }
  if (numbers == Numbers::kRdbAlone) return;
  for (std::size_t i = 0; i < lanes; ++i) {
    exact.value[i] = sums.ExactMass(atoms.c[i], atoms.h[i], atoms.n[i], atoms.o[i]);
  }
  for (std::size_t i = 0; i < lanes; ++i) {
    m1.value[i] = sums.M1(atoms.c[i], atoms.h[i], atoms.n[i], atoms.o[i]);
  }
  for (std::size_t i = 0; i < lanes; ++i) {
    m2.value[i] = sums.M2(m1.value[i], atoms.c[i], atoms.h[i], atoms.n[i], atoms.o[i]);
  }
  Split<kExactMask.scale>(exact, lanes);
  Split<kPeakMask.scale>(m1, lanes);
  Split<kPeakMask.scale>(m2, lanes);
  Split<kRdbMask.scale>(rdb, lanes);
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

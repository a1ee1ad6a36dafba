#include "engine/formula_batch.h"

#include "engine/cell_writer.h"
#include "engine/row_layout.h"

namespace peakwright {
namespace {

template <typename T>
using Each = FormulaBatch::Each<T>;

bool AreCommon(const Each<float>& values, std::size_t lanes) {
  std::uint32_t highest = 0;
  for (std::size_t i = 0; i < lanes; ++i) highest = std::max(highest, Rank(values[i]));
  return highest < Rank(kEndOfCommon);
}

template <std::uint32_t kScale>
void Split(const Each<float>& values, std::size_t lanes, FormulaBatch::Column& column) {
  for (std::size_t i = 0; i < lanes; ++i) {
    const std::uint32_t units = InUnits(values[i], kScale);
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
bool FormulaBatch::WorkOut(const UnitMasses& givenMasses, const Sums& givenSums) {
  // Copies, as the arrays might overlap what a reference refers to.
  const UnitMasses masses = givenMasses;
  const Sums sums = givenSums;

  // Whole groups of lanes: those behind the last formula repeat it.
  constexpr std::size_t kGroup = 8;
  const std::size_t lanes = (size + kGroup - 1) / kGroup * kGroup;
  std::fill(o.begin() + size, o.begin() + lanes, o[size - 1]);
  std::fill(n.begin() + size, n.begin() + lanes, n[size - 1]);

  const double atomsC = c;
  Each<double> atomsO;
  Each<double> atomsN;
  Each<double> atomsH;
  for (std::size_t i = 0; i < lanes; ++i) {
    atomsO[i] = o[i];
    atomsN[i] = n[i];
    h[i] = static_cast<std::int32_t>(masses.Left(atomsC, atomsO[i], atomsN[i]));
    atomsH[i] = h[i];
  }

  Each<float> exact;
  Each<float> m1;
  Each<float> m2;
  for (std::size_t i = 0; i < lanes; ++i) rdb[i] = sums.Rdb(atomsC, atomsH[i], atomsN[i]);
  for (std::size_t i = 0; i < lanes; ++i) {
    exact[i] = sums.ExactMass(atomsC, atomsH[i], atomsN[i], atomsO[i]);
  }
  for (std::size_t i = 0; i < lanes; ++i) {
    m1[i] = sums.M1(atomsC, atomsH[i], atomsN[i], atomsO[i]);
  }
  for (std::size_t i = 0; i < lanes; ++i) {
    m2[i] = sums.M2(m1[i], atomsC, atomsH[i], atomsN[i], atomsO[i]);
  }

  for (const Each<float>* values : {&exact, &m1, &m2, &rdb}) {
    if (!AreCommon(*values, lanes)) return false;
  }
  Split<kExactMask.scale>(exact, lanes, exactDigits);
  Split<kPeakMask.scale>(m1, lanes, m1Digits);
  Split<kPeakMask.scale>(m2, lanes, m2Digits);
  Split<kRdbMask.scale>(rdb, lanes, rdbDigits);
  return true;
}

}  // namespace peakwright

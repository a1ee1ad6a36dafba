#pragma once

#include <cmath>

#include "engine/elements.h"

/// RDB, exact mass and peak ratios as plain sums over the atoms of a formula. Table values and
/// results are Single; products and sums are Double, worked in exactly the order written here, so
/// that every digit of the report is the same everywhere.
namespace peakwright {

/// What the atoms of one element add to the sums of a formula.
struct AtomTerms {
  double exact;      ///< u
  double m1;         ///< percent of M
  double m1Squares;  ///< sum of the squares of the atoms' M+1 percents
  double m2;         ///< percent of M
};

/// One element's numbers, widened to Double.
class Atom {
 public:
  Atom(const Elements& elements, std::size_t index)
      : exactMass_(elements.exactMass[index]),
        valence_(elements.valence[index]),
        peakM1_(elements.peakM1[index]),
        peakM2_(elements.peakM2[index]) {}

  AtomTerms Terms(double count) const {
    const double m1 = peakM1_ * count;
    return {exactMass_ * count, m1, peakM1_ * m1, peakM2_ * count};
  }

  /// Bonds beyond the two that keep a chain going: twice what the atoms add to RDB.
  double SpareBonds(double count) const { return (valence_ - 2) * count; }

  double Valence() const { return valence_; }

 private:
  double exactMass_;
  double valence_;
  double peakM1_;
  double peakM2_;
};

/// What the additional atoms contribute to every formula of a run.
struct AdditionalTotals {
  /// Adds `count` atoms, which may be none or fewer. Atoms without a valence change no RDB.
  void Add(const Atom& atom, double count);

  float addedExact = 0;
  float addedM1 = 0;
  float addedM1Squares = 0;
  float addedM2 = 0;
  float addedRdb = 0;
};

/// The computed values of a report row beside RDB.
struct RowValues {
  float exact;  ///< mass of the whole formula, u
  float m1;     ///< M+1, percent of M
  float m2;     ///< M+2, percent of M
};

/// Rings and double bonds, from the spare bonds of C, H and N; O, with two bonds, has none.
inline float Rdb(double c, double h, double n, const AdditionalTotals& totals) {
  return static_cast<float>((((c + h) + n) / 2 + 1) + totals.addedRdb);
}

/// Whether a formula of this RDB is valid: not negative, and whole if the nitrogen rule applies.
inline bool IsValid(float rdb, bool nitrogenRule) {
  return rdb >= 0 && (!nitrogenRule || rdb - std::trunc(rdb) == 0);
}

/// The values of the formula that the four elements and the additional atoms make up.
inline RowValues SumTerms(const AtomTerms& c, const AtomTerms& h, const AtomTerms& n,
                          const AtomTerms& o, const AdditionalTotals& totals) {
  const auto exact =
      static_cast<float>((((c.exact + h.exact) + n.exact) + o.exact) + totals.addedExact);
  const auto m1 = static_cast<float>((((c.m1 + h.m1) + n.m1) + o.m1) + totals.addedM1);
  const auto squares = static_cast<float>(
      (((c.m1Squares + h.m1Squares) + n.m1Squares) + o.m1Squares) + totals.addedM1Squares);
  // The pairs of different atoms that are one mass unit heavier each; m1 * m1 is worked in Single.
  const float m1Squared = m1 * m1;
  const double pairs = (double{m1Squared} / 100 - double{squares} / 100) / 2;
  const auto m2 = static_cast<float>(((((pairs + c.m2) + h.m2) + n.m2) + o.m2) + totals.addedM2);
  return {exact, m1, m2};
}

}  // namespace peakwright

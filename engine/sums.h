#pragma once

#include <cmath>

#include "engine/arithmetic.h"
#include "engine/elements.h"

/// RDB, exact mass and peak ratios as plain sums over the atoms of a formula. Table values and
/// results are Single; products and sums are Double, worked in exactly the order written here, so
/// that every digit of the report is the same everywhere.
namespace peakwright {

/// One element's numbers, widened to Double, and what `count` of its atoms add to the sums.
class Element {
 public:
  Element(const Elements& elements, std::size_t index)
      : exactMass_(elements.exactMass[index]),
        valence_(elements.valence[index]),
        peakM1_(elements.peakM1[index]),
        peakM2_(elements.peakM2[index]) {}

  double ExactMass(double count) const { return exactMass_ * count; }           ///< u
  double M1(double count) const { return peakM1_ * count; }                     ///< percent
  double M1Squares(double count) const { return peakM1_ * (peakM1_ * count); }  ///< of each atom
  double M2(double count) const { return peakM2_ * count; }                     ///< percent

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
  void Add(const Element& element, double count);

  float addedExact = 0;
  float addedM1 = 0;
  float addedM1Squares = 0;
  float addedM2 = 0;
  float addedRdb = 0;
};

/// Whether a formula of this RDB is valid: not negative, and whole if the nitrogen rule applies.
inline bool IsValid(float rdb, bool nitrogenRule) {
  return rdb >= 0 && (!nitrogenRule || rdb - std::trunc(rdb) == 0);
}

/// The sums of the formulas of one run, each of so many C, H, N and O and the additional atoms.
class Sums {
 public:
  Sums(const Elements& elements, const AdditionalTotals& totals)
      : carbon_(elements, kC),
        hydrogen_(elements, kH),
        nitrogen_(elements, kN),
        oxygen_(elements, kO),
        totals_(totals) {}

  /// Rings and double bonds. O, with two bonds, changes nothing.
  float Rdb(double c, double h, double n) const {
    const double spare =
        (carbon_.SpareBonds(c) + hydrogen_.SpareBonds(h)) + nitrogen_.SpareBonds(n);
    return static_cast<float>((spare / 2 + 1) + totals_.addedRdb);
  }

  /// Mass of the whole formula, u.
  float ExactMass(double c, double h, double n, double o) const {
    return Sum(carbon_.ExactMass(c), hydrogen_.ExactMass(h), nitrogen_.ExactMass(n),
               oxygen_.ExactMass(o), totals_.addedExact);
  }

  /// M+1, percent of M.
  float M1(double c, double h, double n, double o) const {
    return Sum(carbon_.M1(c), hydrogen_.M1(h), nitrogen_.M1(n), oxygen_.M1(o), totals_.addedM1);
  }

  /// M+2, percent of M, of a formula whose M+1 is `m1`: what isotopes of two units more add, and
  /// each pair of atoms that are both one unit heavier. That is the second coefficient of the
  /// product of 1 + (M+1) x + (M+2) x^2 of all atoms (J. A. Yergey, Int. J. Mass Spectrom. Ion
  /// Phys. 52 (1983), 337), in which the sum over pairs is (square of the sum - sum of the squares)
  /// / 2.
  float M2(float m1, double c, double h, double n, double o) const {
    const float squares = Sum(carbon_.M1Squares(c), hydrogen_.M1Squares(h), nitrogen_.M1Squares(n),
                              oxygen_.M1Squares(o), totals_.addedM1Squares);
    const float m1Squared = m1 * m1;  // a Single, too
    const double pairs = (double{m1Squared} / 100 - double{squares} / 100) / 2;
    return Sum(pairs + carbon_.M2(c), hydrogen_.M2(h), nitrogen_.M2(n), oxygen_.M2(o),
               totals_.addedM2);
  }

 private:
  static float Sum(double c, double h, double n, double o, float added) {
    return static_cast<float>((((c + h) + n) + o) + added);
  }

  Element carbon_;
  Element hydrogen_;
  Element nitrogen_;
  Element oxygen_;
  AdditionalTotals totals_;
};

}  // namespace peakwright

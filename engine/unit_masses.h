#pragma once

#include <cstdint>

#include "engine/elements.h"
#include "engine/number_text.h"

namespace peakwright {

/// The mass that formulas make up in unit masses, u. Atoms come off it in the order C, O, N, in
/// Double, and what is left is H: an atom of H counts as 1 whatever the table says.
struct UnitMasses {
  UnitMasses(const Elements& elements, std::int64_t remainingMass)
      : total(static_cast<double>(remainingMass)),
        ofC(elements.unitMass[kC]),
        ofO(elements.unitMass[kO]),
        ofN(elements.unitMass[kN]) {}

  double AfterC(double c) const { return total - ofC * c; }
  double AfterO(double afterC, double o) const { return afterC - ofO * o; }
  double AfterN(double afterO, double n) const { return afterO - ofN * n; }

  /// What is left beside so many atoms of all three.
  double Left(double c, double o, double n) const { return AfterN(AfterO(AfterC(c), o), n); }

  double total;
  double ofC;
  double ofO;
  double ofN;
};

}  // namespace peakwright

#include "engine/sums.h"

namespace peakwright {

void AdditionalTotals::Add(const Atom& atom, double count) {
  addedExact = static_cast<float>(atom.ExactMass(count) + addedExact);
  addedM1 = static_cast<float>(atom.M1(count) + addedM1);
  addedM1Squares = static_cast<float>(atom.M1Squares(count) + addedM1Squares);
  addedM2 = static_cast<float>(atom.M2(count) + addedM2);
  if (atom.Valence() > 0) {
    addedRdb = static_cast<float>(atom.SpareBonds(count) / 2 + addedRdb);
  }
}

}  // namespace peakwright

#include "engine/sums.h"

namespace peakwright {

void AdditionalTotals::Add(const Atom& atom, double count) {
  const AtomTerms terms = atom.Terms(count);
  addedExact = static_cast<float>(terms.exact + addedExact);
  addedM1 = static_cast<float>(terms.m1 + addedM1);
  addedM1Squares = static_cast<float>(terms.m1Squares + addedM1Squares);
  addedM2 = static_cast<float>(terms.m2 + addedM2);
  if (atom.Valence() > 0) {
    addedRdb = static_cast<float>(atom.SpareBonds(count) / 2 + addedRdb);
  }
}

}  // namespace peakwright

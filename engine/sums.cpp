#include "engine/sums.h"

namespace peakwright {

void AdditionalTotals::Add(const Element& element, double count) {
  addedExact = static_cast<float>(element.ExactMass(count) + addedExact);
  addedM1 = static_cast<float>(element.M1(count) + addedM1);
  addedM1Squares = static_cast<float>(element.M1Squares(count) + addedM1Squares);
  addedM2 = static_cast<float>(element.M2(count) + addedM2);
  if (element.Valence() > 0) {
    addedRdb = static_cast<float>(element.SpareBonds(count) / 2 + addedRdb);
  }
}

}  // namespace peakwright

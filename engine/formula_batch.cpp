#include "engine/formula_batch.h"

namespace peakwright {

FormulaBatch::FormulaBatch(const Elements& elements, const AdditionalTotals& totals)
    : carbon_(elements, kC),
      hydrogen_(elements, kH),
      nitrogen_(elements, kN),
      oxygen_(elements, kO),
      totals_(totals) {}

const FormulaBatch::Formulas& FormulaBatch::WorkOut() {
  const Atom carbon = carbon_;
  const Atom hydrogen = hydrogen_;
  const Atom nitrogen = nitrogen_;
  const Atom oxygen = oxygen_;
  const AdditionalTotals totals = totals_;
  // A fixed number of rounds, whatever the size, is what a compiler takes several at a time.
  for (std::size_t i = 0; i < kCapacity; ++i) {
    const RowValues values = SumTerms(carbon.Terms(atomsC_[i]), hydrogen.Terms(atomsH_[i]),
                                      nitrogen.Terms(atomsN_[i]), oxygen.Terms(atomsO_[i]), totals);
    formulas_.exact[i] = values.exact;
    formulas_.m1[i] = values.m1;
    formulas_.m2[i] = values.m2;
    formulas_.rdb[i] = Rdb(carbon.SpareBonds(atomsC_[i]), hydrogen.SpareBonds(atomsH_[i]),
                           nitrogen.SpareBonds(atomsN_[i]), totals);
  }
  return formulas_;
}

}  // namespace peakwright

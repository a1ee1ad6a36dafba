#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

#include "engine/formula_batch.h"
#include "engine/row_buffer.h"
#include "engine/search.h"
#include "engine/sums.h"
#include "engine/unit_masses.h"

namespace peakwright {

/// Writes the numbered rows of formulas.
class RowWriter {
 public:
  /// For the listing of what was found. `take` is called with the rows, many at a time. Requires:
  /// `take` outlives the writer.
  RowWriter(const SearchInput& input, const Found& found,
            const std::function<void(std::string_view)>& take);

  /// Writes a row for each formula of the series that is valid.
  void Append(const FormulaSeries& series);

  /// Hands over the last rows.
  void Finish();

 private:
  void KeepValid();
  void AppendBatch();
  template <bool kPlain>
  char* WriteRows(char* row);

  UnitMasses masses_;
  Sums sums_;
  bool nitrogenRule_;
  bool allValid_;
  FormulaBatch batch_;
  RowBuffer buffer_;
  std::uint64_t rowNumber_ = 0;
};

}  // namespace peakwright

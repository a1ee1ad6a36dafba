#pragma once

#include <cstdint>
#include <string>

#include "engine/elements.h"
#include "engine/formula_batch.h"

namespace peakwright {

/// One run's report as text of fixed width: heading, separator, and a numbered row for each
/// formula.
class Listing {
 public:
  /// Starts a listing for `remainingMass`, in u, with heading and separator.
  Listing(const Elements& elements, std::int64_t remainingMass);

  /// Makes room for `rows` rows, so that the text needn't be moved as it grows.
  void Reserve(std::int64_t rows);

  /// Appends the rows of the formulas that are valid: those whose RDB isn't negative, and is whole
  /// if the nitrogen rule applies.
  void AppendValid(FormulaBatch& batch, bool nitrogenRule);

  std::int64_t RowNumber() const { return rowNumber_; }
  const std::string& Text() const { return text_; }

 private:
  std::string blankRows_;
  std::size_t rowLength_;
  std::string text_;
  std::int64_t rowNumber_ = 0;
};

}  // namespace peakwright

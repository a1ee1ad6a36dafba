#pragma once

#include <cstdint>
#include <string>

#include "engine/elements.h"
#include "engine/sums.h"

namespace peakwright {

/// The counts of one formula and the values that its report row shows.
struct ReportRow {
  std::int64_t c;
  std::int64_t h;
  std::int64_t n;
  std::int64_t o;
  RowValues values;
  float rdb;
};

/// One run's report as text of fixed width: heading, separator, and a numbered row for each
/// formula.
class Listing {
 public:
  /// Starts a listing for `remainingMass`, in u, with heading and separator.
  Listing(const Elements& elements, std::int64_t remainingMass);

  void AppendRow(const ReportRow& row);

  std::int64_t RowNumber() const { return rowNumber_; }
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
  std::int64_t rowNumber_ = 0;
};

}  // namespace peakwright

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "engine/formula_batch.h"
#include "engine/search.h"
#include "engine/sums.h"
#include "engine/unit_masses.h"

namespace peakwright {

/// Takes a text, piece by piece.
using TextSink = std::function<void(std::string_view)>;

/// Writes the numbered rows of formulas and hands them to a sink, many at a time.
class RowWriter {
 public:
  /// For the listing of what was found. `sink` must outlive the writer.
  RowWriter(const SearchInput& input, const Found& found, const TextSink& sink);

  /// Length of a row in bytes.
  static std::size_t RowLength();

  /// Writes a row for each formula of the series that is valid.
  void Append(const FormulaSeries& series);

  /// Hands over the last rows.
  void Finish();

 private:
  void KeepValid();
  void AppendBatch();
  template <bool kPlain>
  void AppendRows();
  void MakeRoom(std::size_t rows);
  void HandOver();
  void Blank();

  UnitMasses masses_;
  Sums sums_;
  bool nitrogenRule_;
  bool allValid_;
  const TextSink& sink_;
  std::size_t rowLength_;
  FormulaBatch batch_;
  std::int64_t rowNumber_ = 0;
  std::string block_;     // Rows that lack only their digits.
  char* row_ = nullptr;   // The one to write next.
  bool spoiled_ = false;  // Some row may have lost a point or a blank.
};

}  // namespace peakwright

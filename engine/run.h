#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/element_table.h"
#include "engine/listing.h"
#include "engine/search.h"

namespace peakwright {

/// What one run reads and writes of the controls. A run without a window, in full:
///
///     class Controls : public RunControls {
///      public:
///       const ElementTable& Table() override { return table_; }
///       std::string MassText() override { return mass_; }
///       void MassText(const std::string& text) override { mass_ = text; }
///       bool AdditionalElements() override { return false; }
///       std::string CountText(int) override { return "0"; }
///       bool NitrogenRule() override { return false; }
///       void Print(std::string_view text) override { std::cout << text << '\n'; }
///       void Print(const Listing& listing) override {
///         listing.Write([](std::string_view piece) { std::cout << piece; });
///         std::cout << '\n';
///       }
///
///      private:
///       ElementTable table_;
///       std::string mass_ = "58";
///     };
///
///     Module1::CR = "\n";  // the end of each row; the application sets it as it starts
///     Controls controls;
///     Module1::calculate(controls);
class RunControls {
 public:
  virtual ~RunControls() = default;

  /// The rows of the element list.
  virtual const ElementTable& Table() = 0;

  /// The text of the mass field, read once and then set to the whole number that was used.
  virtual std::string MassText() = 0;
  virtual void MassText(const std::string& text) = 0;

  /// Whether the numbers of additional atoms count.
  virtual bool AdditionalElements() = 0;

  /// The text of the count field of the additional element `index`, 0 to below
  /// kAdditionalElementCount. Asked only while AdditionalElements().
  virtual std::string CountText(int index) = 0;

  /// Whether only whole molecules are listed.
  virtual bool NitrogenRule() = 0;

  /// Writes `text`, then a line end of its own, into the results.
  virtual void Print(std::string_view text) = 0;
  /// Likewise with the text of a listing.
  virtual void Print(const Listing& listing) = 0;
};

/// What a run came to.
struct RunOutcome {
  std::int64_t mass = 0;      ///< the whole number that was used
  bool nitrogenRule = false;  ///< whether it was applied
  std::int64_t rows = 0;      ///< formulas that were listed
  std::string message = {};   ///< the sentence that stands where none was
};

namespace Module1 {

/// One run: lists the formulas of the mass in the mass field, less the additional atoms, and puts
/// the whole number that it used back into the field. Where a limit of the search would be passed,
/// a sentence that says so stands in the listing's place.
///
/// So the work of a run is bounded, whatever was typed: it tries at most `limits.passes`
/// combinations, each at no more than the cost of a row of a common listing (of the table as it
/// comes), and writes at most `limits.rows` rows, each at no more than that of eight. Neither
/// infinite, huge and negative values nor any number of atoms cost more; the benchmarks measure it.
RunOutcome calculate(RunControls& controls, const SearchLimits& limits = {});

}  // namespace Module1
}  // namespace peakwright

#pragma once

#include <vector>

/// Runs that are as dear as what stands in the cells can make them.
namespace peakwright {

struct DearRun {
  /// The same text in each of the columns of each of the rows of the element table.
  struct Edit {
    std::vector<int> rows;
    std::vector<int> columns;
    const char* text;
  };

  const char* name;
  enum { kByRows, kByTries } cost;  ///< what there are many of: rows, or combinations to try
  const char* mass;
  bool nitrogenRule;
  std::vector<Edit> edits;
};

inline constexpr int kX = 7;  ///< The additional element of which each run has three atoms.

inline const std::vector<DearRun> kDearRuns = [] {
  constexpr int kRowX = 11;
  enum { kUnit = 1, kExact, kValence, kM1, kM2 };
  using Edits = std::vector<DearRun::Edit>;

  const Edits infinite = {{{kRowX}, {kExact, kValence, kM1, kM2}, "1e39"}};
  const Edits huge = {{{kRowX}, {kExact}, "1e38"}, {{kRowX}, {kM1, kM2}, "3e18"}};
  const Edits hugeAndNegative = {{{kRowX}, {kExact}, "-1e38"}, {{kRowX}, {kM1, kM2}, "-3e18"}};
  const Edits large = {{{kRowX}, {kExact, kM1, kM2}, "99999"}};
  const Edits negative = {{{kRowX}, {kExact, kM1, kM2}, "-99999"}};
  const Edits tiny = {{{0, 1, 2, 3}, {kExact, kM1, kM2}, "1e-40"}};
  // All formulas are valid; many atoms of H, or one formula for each C or each pair of C and O.
  const Edits manyH = {{{0, 2, 3}, {kUnit}, "5000"}, {{1}, {kValence}, "2"}};
  const Edits onlyC = {{{0}, {kUnit}, "1000"}, {{2, 3}, {kUnit}, "1e18"}, {{1}, {kValence}, "2"}};
  const Edits noN = {{{0, 3}, {kUnit}, "1"}, {{2}, {kUnit}, "1e18"}, {{1}, {kValence}, "2"}};
  // From one number of C or O to the next those of N fall by a million.
  const Edits lightN = {{{0, 3}, {kUnit}, "1e6"}, {{2}, {kUnit}, "1"}, {{0, 2}, {kValence}, "2"}};
  const Edits noneWhole = {{{kRowX}, {kValence}, "1.6"}};
  // A whole RDB for few N; none that isn't negative, as three X take 3 off.
  const Edits fewWhole = {{{0, 1}, {kValence}, "2"}, {{2}, {kValence}, "2.2"}};
  const Edits noneValid = {{{kRowX}, {kValence}, "1e-45"}, {{0}, {kValence}, "2"}};

  const auto both = [](Edits edits, const Edits& more) {
    edits.insert(edits.end(), more.begin(), more.end());
    return edits;
  };
  constexpr auto kRows = DearRun::kByRows;
  constexpr auto kTries = DearRun::kByTries;
  return std::vector<DearRun>{
      {"infinite_values", kRows, "3000", false, infinite},
      {"infinite_H", kRows, "5300", false, {{{1}, {kExact}, "1e39"}}},
      {"huge_values", kRows, "5000", false, huge},
      {"huge_negative_values", kRows, "5000", false, hugeAndNegative},
      {"large_values", kRows, "5000", false, large},
      {"negative_values", kRows, "5000", false, negative},
      {"tiny_values", kRows, "5000", false, tiny},
      {"nitrogen_rule", kRows, "6500", true, {}},
      {"many_H", kRows, "1050000", false, manyH},
      {"many_H,infinite_values", kRows, "1050000", false, both(manyH, infinite)},
      {"many_H,huge_negative_values", kRows, "1050000", false, both(manyH, hugeAndNegative)},
      {"many_H,tiny_values", kRows, "1050000", false, both(manyH, tiny)},
      {"only_C", kRows, "1900000000", false, onlyC},
      {"only_C,infinite_values", kRows, "1900000000", false, both(onlyC, infinite)},
      {"only_C,huge_negative_values", kRows, "1900000000", false, both(onlyC, hugeAndNegative)},
      {"no_N", kRows, "1950", false, noN},
      {"few_whole", kTries, "6700", true, fewWhole},
      {"few_whole,infinite_values", kTries, "6700", true,
       both(fewWhole, {{{kRowX}, {kExact, kM1, kM2}, "1e39"}})},
      {"none_valid", kTries, "6320", false, both(noN, noneValid)},
      {"none_valid,many_N", kTries, "6320000000", false, both(lightN, noneValid)},
      {"none_whole,many_N", kTries, "4470000000", true, both(lightN, noneWhole)},
  };
}();

}  // namespace peakwright

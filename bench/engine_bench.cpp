// A run of the engine, the same run read literally, and a copy of the finished text; and what a row
// costs at the worst, beside a common one.

#include <algorithm>
#include <cmath>
#include <ctime>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/fastest.h"
#include "engine/global_strings.h"
#include "engine/run.h"
#include "tests/support/literal_run.h"
#include "tests/support/plain_controls.h"

namespace peakwright {
namespace {

void SetUp(PlainControls& controls, const benchmark::State& state) {
  Module1::CR = "\n";
  controls.mass = std::to_string(state.range(0));
}

void Masses(benchmark::internal::Benchmark* bench) {
  for (const int mass : {100, 500, 1000, 2000, 5000}) bench->Arg(mass);
  TellFastest(bench);
}

/// Counts the time by the row: the listing's line feeds.
void CountRows(benchmark::State& state, const std::string& results) {
  using benchmark::Counter;
  const auto rows = static_cast<double>(std::count(results.begin(), results.end(), '\n'));
  state.counters["rows"] = rows;
  state.counters["per_row"] = Counter(rows, Counter::kIsIterationInvariantRate | Counter::kInvert);
}

/// Controls that a run writes into and nobody reads.
struct Unprinted : PlainControls {
  void Print(std::string_view text) override { benchmark::DoNotOptimize(text.data()); }
  void Print(const Listing& listing) override {
    listing.Write([this](std::string_view piece) { Print(piece); });
    rows = static_cast<std::int64_t>(listing.Length() / RowWriter::RowLength()) - 2;
  }
  std::int64_t rows = 0;
};

void BM_Engine(benchmark::State& state) {
  Unprinted controls;
  SetUp(controls, state);
  for (auto unused : state) Module1::calculate(controls);

  PlainControls printed;
  SetUp(printed, state);
  Module1::calculate(printed);
  CountRows(state, printed.results);
}
BENCHMARK(BM_Engine)->Apply(Masses);

void BM_LiteralRun(benchmark::State& state) {
  constexpr std::int64_t kNoLimit = 1'000'000'000;
  PlainControls controls;
  SetUp(controls, state);
  for (auto unused : state) {
    controls.results.clear();
    LiteralRun(controls, kNoLimit);
  }
  CountRows(state, controls.results);
}
BENCHMARK(BM_LiteralRun)->Apply(Masses);

void BM_CopyText(benchmark::State& state) {
  PlainControls controls;
  SetUp(controls, state);
  Module1::calculate(controls);
  for (auto unused : state) {
    std::string copy = controls.results;
    benchmark::DoNotOptimize(copy.data());
  }
  CountRows(state, controls.results);
}
BENCHMARK(BM_CopyText)->Apply(Masses);

/// A run that is as dear as a kind of cells can make it.
struct DearRun {
  struct Edit {
    std::vector<int> rows;
    std::vector<int> columns;
    const char* text;
  };
  const char* name;
  const char* mass;
  bool nitrogenRule;
  std::vector<Edit> edits;
};

const std::vector<DearRun> kDearRuns = {
    {"infinite values", "3000", false, {{{11}, {2, 3, 4, 5}, "1e39"}}},
    {"infinite H", "5300", false, {{{1}, {2}, "1e39"}}},
    {"large whole values", "5000", false, {{{11}, {2}, "3e38"}, {{11}, {4, 5}, "1e19"}}},
    {"large peaks", "5000", false, {{{11}, {2, 4, 5}, "99999"}}},
    {"values below 0", "5000", false, {{{11}, {2, 4, 5}, "-99999"}}},
    {"tiny values", "5000", false, {{{0, 1, 2, 3}, {2, 4, 5}, "1e-40"}}},
    {"tiny values of many atoms",
     "1050000",
     false,
     {{{0, 2, 3}, {1}, "5000"}, {{1}, {3}, "2"}, {{0, 1, 2, 3}, {2, 4, 5}, "1e-40"}}},
    {"many atoms", "1050000", false, {{{0, 2, 3}, {1}, "5000"}, {{1}, {3}, "2"}}},
    {"many atoms, infinite values",
     "1050000",
     false,
     {{{0, 2, 3}, {1}, "5000"}, {{1}, {3}, "2"}, {{11}, {2, 3, 4, 5}, "1e39"}}},
    {"many atoms, large values",
     "1050000",
     false,
     {{{0, 2, 3}, {1}, "5000"}, {{1}, {3}, "2"}, {{11}, {2}, "3e38"}, {{11}, {4, 5}, "-1e19"}}},
    {"nitrogen rule", "6500", true, {}},
    {"one of ten N", "6700", true, {{{0, 1}, {3}, "2"}, {{2}, {3}, "2.2"}}},
    {"one of ten N, infinite values",
     "6700",
     true,
     {{{0, 1}, {3}, "2"}, {{2}, {3}, "2.2"}, {{11}, {2, 4, 5}, "1e39"}}},
    {"one of ten N of many",
     "2450000",
     true,
     {{{0, 2, 3}, {1}, "5000"}, {{0, 1}, {3}, "2"}, {{2}, {3}, "2.2"}}},
    {"one row for each C",
     "1900000",
     false,
     {{{0}, {1}, "1"}, {{2, 3}, {1}, "1e18"}, {{1}, {3}, "2"}}},
    {"one row for each C, many, infinite",
     "1900000000",
     false,
     {{{0}, {1}, "1000"}, {{2, 3}, {1}, "1e18"}, {{1}, {3}, "2"}, {{11}, {2, 3, 4, 5}, "1e39"}}},
    {"one row for each C, many, large",
     "1900000000",
     false,
     {{{0}, {1}, "1000"},
      {{2, 3}, {1}, "1e18"},
      {{1}, {3}, "2"},
      {{11}, {2}, "3e38"},
      {{11}, {4, 5}, "-1e19"}}},
    {"one row for each pair",
     "1950",
     false,
     {{{0, 3}, {1}, "1"}, {{2}, {1}, "1e18"}, {{1}, {3}, "2"}}},
    {"no valid N",
     "6300",
     false,
     {{{0, 3}, {1}, "1"}, {{2}, {1}, "1e18"}, {{1}, {3}, "2"}, {{4}, {1}, "0"}}},
};

/// Of the processor.
double Seconds(Unprinted& controls) {
  const std::clock_t start = std::clock();
  Module1::calculate(controls);
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void BM_WorstToCommon(benchmark::State& state) {
  const DearRun& dear = kDearRuns[static_cast<std::size_t>(state.range(0))];
  state.SetLabel(dear.name);
  Module1::CR = "\n";
  Unprinted common;
  common.mass = "5000";
  Unprinted worst;
  worst.mass = dear.mass;
  worst.nitrogenRule = dear.nitrogenRule;
  worst.additionalElements = true;
  worst.counts[7] = "1";  // of X
  worst.counts[0] = std::string(dear.name) == "no valid N" ? "10000" : "0";
  for (const DearRun::Edit& edit : dear.edits) {
    for (const int row : edit.rows) {
      for (const int column : edit.columns) worst.table.CellTextAt(row, column, edit.text);
    }
  }
  double atWorst = HUGE_VAL;
  double commonly = HUGE_VAL;
  for (auto unused : state) {
    atWorst = std::min(atWorst, Seconds(worst));
    commonly = std::min(commonly, Seconds(common));
  }
  state.counters["rows"] = static_cast<double>(worst.rows);
  state.counters["ms"] = atWorst * 1e3;
  state.counters["ratio"] =
      atWorst / static_cast<double>(worst.rows) / (commonly / static_cast<double>(common.rows));
}
BENCHMARK(BM_WorstToCommon)->DenseRange(0, static_cast<int>(kDearRuns.size()) - 1)->Iterations(5);

}  // namespace
}  // namespace peakwright

BENCHMARK_MAIN();

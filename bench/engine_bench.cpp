// A run of the engine, the same run read literally, and a copy of the finished text; and what a row
// costs at the worst, beside a common one.

#include <algorithm>
#include <ctime>
#include <limits>
#include <string>

#include <benchmark/benchmark.h>

#include "bench/dear_runs.h"
#include "bench/fastest.h"
#include "engine/global_strings.h"
#include "engine/row_buffer.h"
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
    rows = static_cast<std::int64_t>(listing.Length() / RowBuffer::RowLength()) - 2;
  }
  std::int64_t rows = -1;  // No listing.
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

/// Of the processor.
double Seconds(Unprinted& controls) {
  const std::clock_t start = std::clock();
  Module1::calculate(controls);
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void BM_WorstToCommon(benchmark::State& state, const DearRun& dear) {
  Module1::CR = "\n";
  Unprinted common;
  common.mass = "5000";
  Unprinted worst;
  worst.mass = dear.mass;
  worst.nitrogenRule = dear.nitrogenRule;
  worst.additionalElements = true;
  worst.counts[kX] = "3";
  for (const auto& [rows, columns, text] : dear.edits) {
    for (const int row : rows) {
      for (const int column : columns) worst.table.CellTextAt(row, column, text);
    }
  }
  double atWorst = std::numeric_limits<double>::infinity();
  double commonly = atWorst;
  for (auto unused : state) {
    atWorst = std::min(atWorst, Seconds(worst));
    commonly = std::min(commonly, Seconds(common));
  }
  if (worst.rows < 0) state.SkipWithError("past a limit");
  const bool byRows = dear.cost == DearRun::kByRows;
  const auto rows = static_cast<double>(worst.rows);
  const auto tried = static_cast<double>(SearchLimits().passes);
  const double commonRow = commonly / static_cast<double>(common.rows);
  state.counters["rows"] = rows;
  state.counters["ms"] = atWorst * 1e3;
  state.counters[byRows ? "row_to_common" : "try_to_common"] =
      atWorst / (byRows ? rows : tried) / commonRow;
}

const bool kRegistered = [] {
  for (const DearRun& dear : kDearRuns) {
    const std::string name = std::string("BM_WorstToCommon/") + dear.name;
    benchmark::RegisterBenchmark(name.c_str(), BM_WorstToCommon, dear)->Iterations(5);
  }
  return true;
}();

}  // namespace
}  // namespace peakwright

BENCHMARK_MAIN();

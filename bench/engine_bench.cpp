// A run of the engine, the same run read literally, and a copy of the finished text.

#include <algorithm>
#include <string>

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

void BM_Engine(benchmark::State& state) {
  struct Unprinted : PlainControls {
    void Print(std::string_view text) override { benchmark::DoNotOptimize(text.data()); }
    void Print(const Listing& listing) override {
      listing.Write([this](std::string_view piece) { Print(piece); });
    }
  } controls;
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

}  // namespace
}  // namespace peakwright

BENCHMARK_MAIN();

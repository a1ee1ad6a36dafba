// A listing into the results area and onto the screen, the way the program does it and with one
// paragraph a row, and the program's start from its first line to its painted window.

#include <memory>
#include <string>

#include <benchmark/benchmark.h>

#include "app/application.h"
#include "tests/support/painting.h"
#include "ui/text_window.h"

namespace peakwright {
namespace {

int argumentCount = 0;

// Rows of the listings of masses 100, 1000, 2000 and 5000.
void Listings(benchmark::internal::Benchmark* bench) {
  for (const int rows : {28, 13'552, 103'734, 1'578'168}) bench->Arg(rows);
  bench->Unit(benchmark::kMillisecond);
}

void InsertAndPaint(benchmark::State& state, char lineEnd) {
  App app(argumentCount, nullptr);
  app.BringUp();
  TextWindow& window = TextWindow::Instance();
  PaintNow(window);
  std::string listing;
  for (std::int64_t row = 0; row < state.range(0); ++row) {
    listing += "   1) 123.4567  1  2  3  4   1.00    .25  1.5";
    listing += lineEnd;
  }
  for (auto unused : state) {
    window.textfield2.SelectedText(listing);
    PaintNow(window);
    state.PauseTiming();
    window.textfield2.Text("");
    window.textfield2.Text(" ");
    window.textfield2.Text("");
    state.ResumeTiming();
  }
  using benchmark::Counter;
  state.counters["per_row"] = Counter(static_cast<double>(state.range(0)),
                                      Counter::kIsIterationInvariantRate | Counter::kInvert);
}

void BM_RowsOfAListing(benchmark::State& state) { InsertAndPaint(state, '\n'); }
BENCHMARK(BM_RowsOfAListing)->Apply(Listings);

void BM_OneParagraphARow(benchmark::State& state) { InsertAndPaint(state, '\r'); }
BENCHMARK(BM_OneParagraphARow)->Apply(Listings);

void BM_StartUp(benchmark::State& state) {
  for (auto unused : state) {
    App app(argumentCount, nullptr);
    app.BringUp();
    PaintNow(TextWindow::Instance());
  }
}
BENCHMARK(BM_StartUp)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace peakwright

int main(int argc, char** argv) {
  peakwright::StayOffScreen();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}

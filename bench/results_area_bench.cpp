// A listing into the results area and onto the screen, the way the program does it and with one
// paragraph a row, and the program's start from its first line to its painted window.

#include <cstdint>
#include <functional>
#include <string>

#include <benchmark/benchmark.h>

#include "app/application.h"
#include "bench/fastest.h"
#include "tests/support/painting.h"
#include "ui/text_window.h"

namespace peakwright {
namespace {

int argumentCount = 0;

void Masses(benchmark::internal::Benchmark* bench) {
  for (const int mass : {100, 1000, 2000, 5000}) bench->Arg(mass);
  TellFastest(bench->Unit(benchmark::kMillisecond));
}

void RowsOfMasses(benchmark::internal::Benchmark* bench) {
  for (const int rows : {28, 13'552, 103'734, 1'578'168}) bench->Arg(rows);
  TellFastest(bench->Unit(benchmark::kMillisecond));
}

/// Measures `write` and the painting of what it wrote into the program's empty results area.
void WriteAndPaint(benchmark::State& state, const std::function<void(TextWindow&)>& write) {
  App app(argumentCount, nullptr);
  app.BringUp();
  TextWindow& window = TextWindow::Instance();
  PaintNow(window);
  for (auto unused : state) {
    write(window);
    PaintNow(window);
    state.PauseTiming();
    window.textfield2.Text("");
    window.textfield2.Text(" ");
    window.textfield2.Text("");
    state.ResumeTiming();
  }
}

void BM_Run(benchmark::State& state) {
  WriteAndPaint(state, [mass = std::to_string(state.range(0))](TextWindow& window) {
    window.textfield1.Text(mass);
    window.Pushbutton1.Press();
  });
}
BENCHMARK(BM_Run)->Apply(Masses);

void BM_OneParagraphARow(benchmark::State& state) {
  std::string listing;
  for (std::int64_t row = 0; row < state.range(0); ++row) {
    listing += "   1) 123.4567  1  2  3  4   1.00    .25  1.5\r";
  }
  WriteAndPaint(state, [&listing](TextWindow& window) { window.textfield2.SelectedText(listing); });
}
BENCHMARK(BM_OneParagraphARow)->Apply(RowsOfMasses);

void BM_StartUp(benchmark::State& state) {
  for (auto unused : state) {
    App app(argumentCount, nullptr);
    app.BringUp();
    PaintNow(TextWindow::Instance());
  }
}
BENCHMARK(BM_StartUp)->Unit(benchmark::kMillisecond)->Apply(TellFastest);

}  // namespace
}  // namespace peakwright

int main(int argc, char** argv) {
  peakwright::StayOffScreen();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}

// What the results area does with a listing, from the press of Run to its end, in the program's
// window, and the program's start from its first line to its painted window. Times are told beside
// those of a yardstick that is measured in turn.

#include <cstdint>
#include <fstream>
#include <functional>
#include <optional>
#include <string>

#include <benchmark/benchmark.h>

#include "app/application.h"
#include "bench/fastest.h"
#include "bench/yardstick.h"
#include "tests/support/hands.h"
#include "ui/text_window.h"

namespace peakwright {
namespace {

constexpr const char* kLongestMass = "5000";

int argumentCount = 0;

/// The program with its window on screen.
class Program {
 public:
  Program() {
    app_.Start();
    Paint();
  }

  TextWindow& Window() { return TextWindow::Instance(); }
  DesktopTextArea& Results() { return Window().textfield2; }

  void Run(const std::string& mass) {
    Window().textfield1.Text(mass);
    Window().Pushbutton1.Press();
    Paint();
  }
  void Clear() {
    Window().PushButton2.Press();
    Paint();
  }
  /// Leaves nothing that Undo could bring back.
  void Empty() {
    for (const char* text : {"", " ", ""}) Results().Text(text);
    Paint();
  }
  void Press(const char* keys) {
    PressKeys(Results(), keys);
    Paint();
  }
  void Widen(int width) {
    Resize(Window(), width, Window().Height());
    Paint();
  }

 private:
  App app_{argumentCount, nullptr};
};

const std::string& LongestListing() {
  static const std::string listing = [] {
    Program program;
    program.Empty();
    program.Run(kLongestMass);
    return program.Results().Text();
  }();
  return listing;
}

/// Times `act` in a program that `prepare` brought to where it starts, with the longest listing in
/// its results.
void Measure(benchmark::State& state, const std::function<void(Program&)>& prepare,
             const std::function<void(Program&)>& act) {
  BesideYardstick beside(LongestListing());
  Program program;
  program.Empty();
  program.Run(kLongestMass);
  for (auto unused : state) {
    prepare(program);
    beside.Time(state, [&] { act(program); });
  }
  beside.Tell(state);
}

void FewOfALongThing(benchmark::internal::Benchmark* bench) {
  TellFastest(bench->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond));
}

void FewOfEachMass(benchmark::internal::Benchmark* bench) {
  for (const int mass : {100, 1000, 2000, 5000}) bench->Arg(mass);
  FewOfALongThing(bench);
}

void BM_Run(benchmark::State& state) {
  BesideYardstick beside(LongestListing());
  Program program;
  program.Run("1");  // makes the window of the table
  for (auto unused : state) {
    program.Empty();
    beside.Time(state, [&] { program.Run(std::to_string(state.range(0))); });
  }
  beside.Tell(state);
}
BENCHMARK(BM_Run)->Apply(FewOfEachMass);

/// A step of a drag at the window's edge, around the given width.
void BM_Resize(benchmark::State& state) {
  const auto width = static_cast<int>(state.range(0));
  Measure(
      state, [width](Program& program) { program.Widen(width); },
      [width](Program& program) { program.Widen(width + 10); });
}
BENCHMARK(BM_Resize)->ArgName("fits")->Arg(550)->Apply(FewOfALongThing);
BENCHMARK(BM_Resize)->ArgName("wraps")->Arg(350)->Apply(FewOfALongThing);

/// The first step that makes the rows of a new listing wrap.
void BM_FirstWrap(benchmark::State& state) {
  Measure(
      state,
      [](Program& program) {
        program.Empty();
        program.Widen(550);
        program.Run(kLongestMass);
      },
      [](Program& program) { program.Widen(350); });
}
BENCHMARK(BM_FirstWrap)->Apply(FewOfALongThing);

void BM_Clear(benchmark::State& state) {
  Measure(
      state,
      [](Program& program) {
        program.Empty();
        program.Run(kLongestMass);
      },
      [](Program& program) { program.Clear(); });
}
BENCHMARK(BM_Clear)->Apply(FewOfALongThing);

void BM_UndoClear(benchmark::State& state) {
  Measure(
      state, [](Program& program) { program.Clear(); },
      [](Program& program) { program.Press("Ctrl+Z"); });
}
BENCHMARK(BM_UndoClear)->Apply(FewOfALongThing);

void BM_RedoClear(benchmark::State& state) {
  Measure(
      state,
      [](Program& program) {
        program.Clear();
        program.Press("Ctrl+Z");
      },
      [](Program& program) { program.Press("Ctrl+Shift+Z"); });
}
BENCHMARK(BM_RedoClear)->Apply(FewOfALongThing);

void BM_UndoDeletion(benchmark::State& state) {
  Measure(
      state,
      [](Program& program) {
        program.Press("Ctrl+A");
        program.Press("Del");
      },
      [](Program& program) { program.Press("Ctrl+Z"); });
}
BENCHMARK(BM_UndoDeletion)->Apply(FewOfALongThing);

void BM_TypeAKey(benchmark::State& state) {
  Measure(
      state, [](Program& program) { program.Press("Home"); },
      [](Program& program) { program.Press("7"); });
}
BENCHMARK(BM_TypeAKey)->Apply(FewOfALongThing);

/// A line of 1,000,000 characters, without a blank or with some.
void BM_LongLine(benchmark::State& state) {
  std::string line(1'000'000, '7');
  for (auto at = static_cast<std::size_t>(state.range(0)); at != 0 && at < line.size(); at += 7) {
    line[at] = ' ';
  }
  Measure(
      state, [](Program& program) { program.Empty(); },
      [&line](Program& program) {
        program.Results().SelectedText(line);
        Paint();
      });
}
BENCHMARK(BM_LongLine)->ArgName("blanks")->Arg(0)->Arg(1)->Apply(FewOfALongThing);

void BM_TurnAPage(benchmark::State& state) {
  Measure(
      state, [](Program& program) { program.Results().VerticalScrollPosition(700'000); },
      [](Program& program) { program.Press("PgUp"); });
}
BENCHMARK(BM_TurnAPage)->Apply(FewOfALongThing);

void BM_Quit(benchmark::State& state) {
  BesideYardstick beside(LongestListing());
  for (auto unused : state) {
    std::optional<Program> program(std::in_place);
    program->Run(kLongestMass);
    beside.Time(state, [&] { program.reset(); });
  }
  beside.Tell(state);
}
BENCHMARK(BM_Quit)->Apply(FewOfALongThing);

void BM_StartUp(benchmark::State& state) {
  for (auto unused : state) Program program;
}
BENCHMARK(BM_StartUp)->Unit(benchmark::kMillisecond)->Apply(TellFastest);

/// A figure of /proc/self/status in bytes: VmRSS is what is held now, VmHWM the most since the
/// mark.
double Memory(const std::string& figure) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word != figure + ":") continue;
    double kibibytes = 0;
    status >> kibibytes;
    return kibibytes * 1024;
  }
  return 0;
}

void MarkMostMemory() { std::ofstream("/proc/self/clear_refs") << 5; }

/// Bytes of memory for each byte of the listings in the area, and how many more a copy of all of
/// them takes while it is made.
void BM_Memory(benchmark::State& state) {
  const auto length = static_cast<double>(LongestListing().size());
  for (auto unused : state) {
    Program program;
    program.Run("1");
    program.Empty();
    const double atFirst = Memory("VmRSS");
    for (std::int64_t run = 0; run < state.range(0); ++run) program.Run(kLongestMass);
    const double held = Memory("VmRSS");
    const double listed = length * static_cast<double>(state.range(0));
    state.counters["held"] = (held - atFirst) / listed;
    program.Press("Ctrl+A");
    MarkMostMemory();
    program.Press("Ctrl+C");
    state.counters["copying"] = (Memory("VmHWM") - held) / listed;
  }
}
BENCHMARK(BM_Memory)->ArgName("runs")->Arg(1)->Arg(10)->Iterations(1)->Unit(
    benchmark::kMillisecond);

}  // namespace
}  // namespace peakwright

int main(int argc, char** argv) {
  peakwright::StayOffScreen();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}

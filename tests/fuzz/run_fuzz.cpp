// Whole runs on random masses, counts and cells, held against the literal run. Takes a number of
// cases and a seed.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "engine/global_strings.h"
#include "tests/support/literal_run.h"
#include "tests/support/plain_controls.h"

namespace peakwright {
namespace {

constexpr const char* kOddTexts[] = {
    "",     "abc",   "-1",    "0",     "-0.25", "2.0001", "12.0001",
    "14.3", "16",    "99999", "1e6",   "-7e5",  "1e13",   "1e18",
    "1e30", "-1e30", "1e39",  "-1e39", "1e-46", "0.001",  "9223372036854775807"};
constexpr const char* kNames[] = {"", "Q", "Abcd", "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9"};

class Choices {
 public:
  explicit Choices(unsigned seed) : random_(seed) {}
  int Below(std::size_t n) { return static_cast<int>(random_() % n); }
  std::string Number() {
    const int kind = Below(8);
    if (kind == 0) return kOddTexts[Below(std::size(kOddTexts))];
    const std::string whole = std::to_string(Below(40));
    if (kind < 3) return whole + "." + std::to_string(Below(100));
    return kind < 5 ? LongNumber() : whole;
  }
  /// Of ten digits. Sums of such numbers need all the bits of a Single, and a report shows them.
  std::string LongNumber() {
    std::string digits = Below(4) == 0 ? "-" : "";
    for (int i = 0; i < 10; ++i) digits += static_cast<char>('0' + Below(10));
    return digits.insert(static_cast<std::size_t>(1 + Below(9)), ".");
  }

 private:
  std::mt19937 random_;
};

PlainControls MakeControls(Choices& choices) {
  PlainControls controls;
  const int least = choices.Below(32) == 0 ? 200 : 0;
  controls.mass =
      choices.Below(8) == 0 ? choices.Number() : std::to_string(least + choices.Below(160));
  controls.nitrogenRule = choices.Below(2) == 1;
  controls.additionalElements = choices.Below(2) == 1;
  for (std::string& count : controls.counts) {
    const int kind = choices.Below(16);
    if (kind < 5) count = std::to_string(choices.Below(7) - 3);
    if (kind == 5) count = choices.Number();
  }
  if (choices.Below(4) == 0) {
    for (int row = 0; row < kElementCount; ++row) {
      for (const int column : {2, 3, 4, 5}) {
        if (column == 3 && choices.Below(4) > 0) continue;  // valences decide on the rows
        controls.table.CellTextAt(row, column, choices.LongNumber());
      }
    }
  }
  for (int edits = choices.Below(8); edits > 0; --edits) {
    const int row =
        choices.Below(2) == 0 ? choices.Below(kElementCount) : choices.Below(kCoreElementCount);
    const int column = choices.Below(kElementColumns);
    controls.table.CellTextAt(
        row, column, column == 0 ? kNames[choices.Below(std::size(kNames))] : choices.Number());
  }
  return controls;
}

void Check(Choices& choices) {
  constexpr std::int64_t kPasses = 20'000;
  Module1::CR = "\n";
  PlainControls controls = MakeControls(choices);
  PlainControls expected = controls;
  // The engine takes at most four times the passes of the literal run.
  Module1::calculate(controls, {kPasses, 4 * kPasses});
  if (!LiteralRun(expected, kPasses)) return;
  if (controls.results == expected.results && controls.mass == expected.mass) return;
  std::fprintf(stderr, "Mass %s:\n%s\nliterally:\n%s\n", expected.mass.c_str(),
               controls.results.c_str(), expected.results.c_str());
  std::abort();
}

}  // namespace
}  // namespace peakwright

int main(int argc, char** argv) {
  const long cases = argc > 1 ? std::atol(argv[1]) : 1000;
  peakwright::Choices choices(argc > 2 ? static_cast<unsigned>(std::atol(argv[2])) : 1);
  for (long i = 0; i < cases; ++i) peakwright::Check(choices);
  std::printf("%ld cases agree.\n", cases);
}

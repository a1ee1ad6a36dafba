#pragma once

#include <algorithm>
#include <ctime>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>

namespace peakwright {

/// The processor time of something beside that of widening one text to 16 bits into fresh memory,
/// the least that any text control of the toolkit has to do with it. Both are the fastest of all
/// iterations, and measured in turn, so that whatever else the machine does meets both.
class BesideYardstick {
 public:
  explicit BesideYardstick(const std::string& text) : text_(text) {}

  /// One iteration: times the yardstick, then `act`.
  template <class Function>
  void Time(benchmark::State& state, const Function& act) {
    yardstick_ = std::min(yardstick_, Seconds([this] { Widen(); }));
    widened_.reset();
    const double seconds = Seconds(act);
    fastest_ = std::min(fastest_, seconds);
    state.SetIterationTime(seconds);
  }

  /// Tells the ratio with the benchmark.
  void Tell(benchmark::State& state) const { state.counters["yardsticks"] = fastest_ / yardstick_; }

 private:
  template <class Function>
  static double Seconds(const Function& act) {
    const std::clock_t start = std::clock();
    act();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  }

  void Widen() {
    widened_.reset(new char16_t[text_.size()]);  // not cleared
    std::transform(text_.begin(), text_.end(), widened_.get(),
                   [](char unit) { return static_cast<unsigned char>(unit); });
    benchmark::DoNotOptimize(widened_.get());
  }

  const std::string& text_;
  std::unique_ptr<char16_t[]> widened_;
  double yardstick_ = 1e9;
  double fastest_ = 1e9;
};

}  // namespace peakwright

#pragma once

#include <algorithm>
#include <vector>

#include <benchmark/benchmark.h>

namespace peakwright {

/// Has `bench` tell the fastest of its repetitions, the one that was disturbed least.
inline void TellFastest(benchmark::internal::Benchmark* bench) {
  bench->ComputeStatistics("min", [](const std::vector<double>& repetitions) {
    return *std::min_element(repetitions.begin(), repetitions.end());
  });
}

}  // namespace peakwright

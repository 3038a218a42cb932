#include <array>

#include <benchmark/benchmark.h>

#include "calibration/CalibrationSolver.h"

namespace touchpanel {
namespace {

/// A 5 by 5 grid of targets and what a slightly bent sensor reports for them.
struct Samples {
  std::array<float, 25> targetX{}, targetY{}, rawX{}, rawY{};
  Samples() {
    for (std::size_t i = 0; i < 25; ++i) {
      const auto u = static_cast<float>(i % 5), v = static_cast<float>(i / 5);
      targetX[i] = 1638 + u * 7373;
      targetY[i] = 1638 + v * 7373;
      rawX[i] = 1700 + u * 7300 + 11 * u * v;
      rawY[i] = 1500 + v * 7400 - 7 * u * u;
    }
  }
};

void solve(benchmark::State& state, std::int32_t count, bool distorted) {
  Samples samples;
  _CALIB_PARAM x{}, y{};
  for (auto _ : state) {
    benchmark::DoNotOptimize(samples);
    benchmark::DoNotOptimize(generateCalibParam(samples.targetX.data(), samples.targetY.data(),
                                                samples.rawX.data(), samples.rawY.data(), count, x, y,
                                                distorted, {samples.rawX.data(), samples.rawY.data()}));
    benchmark::ClobberMemory();
  }
}

BENCHMARK_CAPTURE(solve, planeFromFourTouches, 4, false);
BENCHMARK_CAPTURE(solve, cubicFromTwentyFiveTouches, 25, true);

}  // namespace
}  // namespace touchpanel

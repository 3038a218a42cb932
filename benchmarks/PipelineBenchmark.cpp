// Cost of one frame through a driver instance: calibrated, smoothed and filtered, as on an optical
// touchscreen.
#include <cmath>
#include <vector>

#include <benchmark/benchmark.h>

#include "contract/DriverProperties.h"
#include "driver/TouchDriver.h"

namespace touchpanel {
namespace {

_CALIB_PARAMS cubic() {
  _CALIB_PARAMS params{};
  params.X = {1e-9F, 1e-9F, -1e-9F, 1e-9F, 1e-6F, -1e-6F, 1e-6F, 0.01F, 0.98F, 100, {}};
  params.Y = {1e-9F, 1e-9F, -1e-9F, 1e-9F, 1e-6F, -1e-6F, 1e-6F, 0.98F, 0.01F, 100, {}};
  return params;
}

/// A second of strokes at 125 frames a second, a lift after each tenth.
std::vector<RawFrame> strokes(std::uint8_t fingers) {
  std::vector<RawFrame> frames;
  for (int i = 0; i < 125; ++i) {
    RawFrame frame;
    frame.count = i % 12 == 11 ? 0 : fingers;
    for (std::uint8_t finger = 0; finger < frame.count; ++finger)
      frame.contacts[finger] = {finger, 3000 + 2500 * finger + 37 * i,
                                16000 + static_cast<int>(9000 * std::sin(i / 9.0))};
    frames.push_back(frame);
  }
  return frames;
}

void BM_PipelineFrame(benchmark::State& state) {
  std::uint64_t told = 0;
  driver::TouchDriver driver([&](const OutputFrame&) { ++told; });
  const auto image = imageOf(cubic());
  driver.setProperty(property::kCalibration, Dictionary{{"calibrateStatus", true},
                                                        {"calibParams", Bytes(image.begin(), image.end())}});
  driver.setProperty(property::kConfigration,
                     Dictionary{{"mode", static_cast<std::int32_t>(state.range(0))}});
  driver.setDoubleClick(std::chrono::milliseconds(500), 5);
  auto frames = strokes(static_cast<std::uint8_t>(state.range(1)));
  std::chrono::microseconds now{0};
  std::size_t next = 0;
  for (auto _ : state) {
    auto& frame = frames[next];
    next = next + 1 == frames.size() ? 0 : next + 1;
    frame.time = now += std::chrono::milliseconds(8);
    driver.process(frame);
  }
  benchmark::DoNotOptimize(told);
}
BENCHMARK(BM_PipelineFrame)
    ->ArgNames({"mode", "fingers"})
    ->ArgsProduct({{0, 1, 2}, {1}})
    ->Args({3, 2})
    ->Args({3, 10});

}  // namespace
}  // namespace touchpanel

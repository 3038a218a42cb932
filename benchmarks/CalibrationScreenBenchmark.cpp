// What a redraw of the calibration screen costs in the logic: everything but the pixels.
#include <benchmark/benchmark.h>

#include "RunningCalibration.h"

namespace touchpanel::benchmarks {
namespace {

class NoCanvas final : public Canvas {
 public:
  void fillRect(const Rect& rect, const Color&) override { benchmark::DoNotOptimize(rect); }
  void fillOval(const Rect& bounds, const Color&) override { benchmark::DoNotOptimize(bounds); }
  void strokeRect(const Rect& rect, const Color&) override { benchmark::DoNotOptimize(rect); }
  void strokeOval(const Rect& bounds, const Color&, float) override { benchmark::DoNotOptimize(bounds); }
  void drawLine(const Point& from, const Point&, const Color&, float) override {
    benchmark::DoNotOptimize(from);
  }
  void drawText(const StyledText& text, const Point&) override { benchmark::DoNotOptimize(text); }
  Rect textExtent(const StyledText& text, const Point& origin) override {
    benchmark::DoNotOptimize(text);
    return {origin.x, origin.y, 100, 20};
  }
};
void redraw(benchmark::State& state, std::int32_t touches) {
  const Rect frame{0, 0, static_cast<float>(state.range(0)), static_cast<float>(state.range(1))};
  NoCanvas canvas;
  RunningCalibration run(25, touches, frame, canvas);
  for (auto _ : state) run.view.drawRect(canvas);
  if (run.view.run().isOver() || run.view.run().isFinished() != (touches == 25))
    state.SkipWithError("the touches were not taken");
}

BENCHMARK_CAPTURE(redraw, target, 0)->Args({1920, 1080})->Args({3840, 2160});
BENCHMARK_CAPTURE(redraw, finishedGrid, 25)->Args({1920, 1080})->Args({3840, 2160});

}  // namespace
}  // namespace touchpanel::benchmarks

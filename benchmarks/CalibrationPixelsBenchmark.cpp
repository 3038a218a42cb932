// What a redraw of the calibration screen costs in pixels: the logic, the painting into an image, and the
// copy of that image to the window.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include "RunningCalibration.h"
#include "providers/qt/QtCanvas.h"

namespace touchpanel::benchmarks {
namespace {

QImage imageOf(const benchmark::State& state) {
  return {static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), QImage::Format_RGB32};
}

void draw(benchmark::State& state, std::int32_t touches) {
  QImage image = imageOf(state);
  QPainter painter(&image);
  QtCanvas canvas(painter, static_cast<float>(image.height()));
  const Rect frame{0, 0, static_cast<float>(image.width()), static_cast<float>(image.height())};
  RunningCalibration run(25, touches, frame, canvas);
  for (auto _ : state) {
    run.view.drawRect(canvas);
    benchmark::DoNotOptimize(image.constBits());
  }
  if (run.view.run().isOver()) state.SkipWithError("the run has ended");
}

void copyToWindow(benchmark::State& state) {
  const QImage image = imageOf(state);
  QImage window = imageOf(state);
  QPainter painter(&window);
  for (auto _ : state) {
    painter.drawImage(0, 0, image);
    benchmark::DoNotOptimize(window.constBits());
  }
}

BENCHMARK_CAPTURE(draw, target, 0)->Args({1920, 1080})->Args({3840, 2160})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(draw, finishedGrid, 25)
    ->Args({1920, 1080})
    ->Args({3840, 2160})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(copyToWindow)->Args({1920, 1080})->Args({3840, 2160})->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace touchpanel::benchmarks

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);  // fonts need one
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}

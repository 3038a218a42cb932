#include "demo/measure/AccuracyProbe.h"

#include <vector>

namespace touchpanel::demo {
namespace {

using namespace std::chrono_literals;

// Longer than any double-click time that can be set, so that no tap is taken for the second of a pair.
constexpr auto kBetweenTaps = 10s;
constexpr auto kTapLasts = 60ms;

firmware::ScreenFraction inside(const TouchedBox& box, firmware::ScreenFraction point) {
  return {box.corner.x + point.x * box.size.x, box.corner.y + point.y * box.size.y};
}

std::optional<driver::Point> landing(simulated::SimulatedTouchscreen& touchscreen,
                                     firmware::ScreenFraction point, FingerClock& clock) {
  std::optional<driver::Point> first;
  touchscreen.setOutput([&](const OutputFrame& frame) {
    if (frame.hasPosition && !first) first = driver::Point{frame.x, frame.y};
  });
  clock.skip(kBetweenTaps);
  touchscreen.touch(point, clock.now());
  clock.skip(kTapLasts);
  touchscreen.release(clock.now());
  touchscreen.setOutput({});
  return first;
}

}  // namespace

std::optional<ErrorSummary> probeAccuracy(simulated::SimulatedTouchscreen& touchscreen, ScreenSize screen,
                                          FingerClock& clock, const TouchedBox& box) {
  std::vector<double> errors;
  for (const auto& point : testPoints()) {
    const auto landed = landing(touchscreen, inside(box, point), clock);
    if (!landed) return std::nullopt;
    errors.push_back(errorInPixels(point, *landed, screen));
  }
  return summaryOf(errors);
}

}  // namespace touchpanel::demo

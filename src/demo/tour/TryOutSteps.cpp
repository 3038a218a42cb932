#include <QAbstractItemView>
#include <QComboBox>
#include <algorithm>
#include <cstdio>

#include "demo/tour/Steps.h"
#include "panel/TryOutScreen.h"

namespace touchpanel::demo {
namespace {

constexpr double kHitPixels = 2;
constexpr double kMissPixels = 8;

/// Chooses in the simulator window what the mouse is; null for a mouse.
void makeMouse(Stage& stage, const simulated::SimulatedTouchscreen* touchscreen) {
  auto& roles = stage.the<QComboBox>("mouseRole");
  const auto& all = stage.demo().machine().all();
  const auto place = std::ranges::find_if(all, [&](const auto& other) { return other.get() == touchscreen; });
  const int row = roles.findData(place == all.end() ? -1 : static_cast<int>(place - all.begin()));
  const auto name =
      touchscreen == nullptr ? std::string("a mouse") : "a finger on " + touchscreen->model().name;
  require(row >= 0, "the mouse cannot be " + name);
  stage.click("mouseRole");
  stage.until(
      [&] { return roles.view()->isVisible() && roles.view()->window()->windowHandle()->isExposed(); },
      "the choice of what the mouse is");
  const auto choice = roles.view()->visualRect(roles.model()->index(row, 0)).center();
  stage.click(roles.view()->viewport()->mapToGlobal(choice));
  stage.until([&] { return roles.currentIndex() == row && !roles.view()->isVisible(); },
              "the mouse to be " + name);
}

void tapTestPoints(Stage& stage) {
  const auto& tryOut = stage.demo().tryOut();
  const auto& surface = stage.the<TryOutSurface>("tryOutSurface");
  for (std::size_t tap = tryOut.taps().size(); tap < tryOut.testPoints().size(); ++tap) {
    const auto marked = tryOut.markedPoint();
    require(marked.has_value(), "no test point is marked");
    stage.click(surface.mapToGlobal(
        QPointF(static_cast<double>(marked->x), static_cast<double>(marked->y)).toPoint()));
    stage.until([&] { return tryOut.taps().size() == tap + 1; },
                "the tap on test point " + std::to_string(tap + 1));
  }
}

TouchErrors tryOutInfrared(Stage& stage, const std::string& pictures) {
  stage.turnTo("tabView", "tryOutPage");
  const auto& tryOut = stage.demo().tryOut();
  if (!tryOut.taps().empty()) stage.click("btnTryOutClear");
  stage.until([&] { return tryOut.taps().empty() && !tryOut.testPoints().empty(); }, "a fresh try-out");
  makeMouse(stage, &stage.demo().touchscreen(DeviceKind::Infrared));
  tapTestPoints(stage);
  makeMouse(stage, nullptr);
  const auto result = tryOut.result();
  require(result.has_value(), "the try-out page shows no result");
  stage.pictures().takeInBothThemes(pictures);
  stage.turnTo("tabView", "devicePage");
  return result->pixels;
}

std::string described(const TouchErrors& error) {
  char text[80];
  std::snprintf(text, sizeof text, "mean error %.1f px, largest %.1f px", error.mean, error.largest);
  return text;
}

}  // namespace

std::string tryOutBeforeCalibration(Stage& stage) {
  const auto error = tryOutInfrared(stage, "try-out-before");
  require(error.mean > kMissPixels, "it hits already: " + described(error));
  return described(error);
}

std::string tryOutAfterCalibration(Stage& stage) {
  const auto error = tryOutInfrared(stage, "try-out-after");
  require(error.mean < kHitPixels, "it still misses: " + described(error));
  return described(error);
}

std::string tryOutOnTheWholeScreen(Stage& stage) {
  makeMouse(stage, &stage.demo().touchscreen(DeviceKind::Infrared));
  stage.click("btnTryOut");
  stage.untilShown("tryOutScreen");
  const auto& tryOut = dynamic_cast<TryOutScreen&>(stage.widget("tryOutScreen")).tryOut();
  stage.until([&] { return tryOut.markedPoint().has_value(); }, "a test point");
  while (tryOut.taps().size() < tryOut.testPoints().size()) {
    const auto tap = tryOut.taps().size();
    const auto marked = tryOut.markedPoint().value();
    stage.click(QPointF(static_cast<double>(marked.x), static_cast<double>(marked.y)).toPoint());
    stage.until([&] { return tryOut.taps().size() == tap + 1; }, "tap " + std::to_string(tap + 1));
  }
  const auto error = tryOut.result().value().pixels;
  stage.pictures().takeInEveryTheme("try-out-whole-screen", stage.widget("tryOutScreen"));
  stage.click("btnTryOutClose");
  stage.untilHidden("tryOutScreen");
  makeMouse(stage, nullptr);
  // Some corners lie beyond what the misaligned sensor reports.
  require(error.mean < kMissPixels, "it misses: " + described(error));
  return described(error) + ", corners and edges included";
}

}  // namespace touchpanel::demo

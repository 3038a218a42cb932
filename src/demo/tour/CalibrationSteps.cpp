#include <cstdio>

#include "calibration/CalibrationGrid.h"
#include "contract/DriverProperties.h"
#include "demo/measure/AccuracyProbe.h"
#include "demo/tour/CalibrationPlay.h"
#include "demo/tour/Steps.h"

namespace touchpanel::demo {
namespace {

ErrorSummary probe(Stage& stage, simulated::SimulatedTouchscreen& touchscreen, const TouchedBox& box) {
  const auto summary = probeAccuracy(touchscreen, Demo::screen(), stage.demo().fingerClock(), box);
  require(summary.has_value(), touchscreen.model().name + " moves no pointer");
  return *summary;
}

std::string compared(const ErrorSummary& before, const ErrorSummary& after) {
  char text[160];
  std::snprintf(text, sizeof text,
                "mean error %.1f px before, %.2f px after; largest %.1f px before, %.2f px after",
                before.mean, after.mean, before.largest, after.largest);
  return text;
}

/// The list and the place where the touchscreen keeps its calibration must hold what the driver applies.
void requireStored(Stage& stage, simulated::SimulatedTouchscreen& touchscreen) {
  const auto& name = touchscreen.model().name;
  const auto entry = stage.demo().entryOf(touchscreen);
  require(entry != nullptr, name + " is not listed any more");
  require(entry->text(entry_key::kCalibrateStatus) == entry_key::kYes,
          "the list has no calibration of " + name);
  const auto listed = imageOf(contextOf(*entry).CalibParams);
  const auto stored = stage.demo().storedCalibration(touchscreen);
  require(stored.has_value(), "no calibration is stored for " + name);
  require(imageOf(*stored) == listed, "what is stored for " + name + " is not what the list holds");
  const auto driver = touchscreen.driver().state();
  const auto* applied = driver.dictionary(property::kCalibration)->bytes(calibration_key::kCalibParams);
  require(applied != nullptr && *applied == Bytes(listed.begin(), listed.end()),
          "the driver instance of " + name + " applies something else than what is stored");
}

/// What differs from one calibration to the next.
struct Course {
  DeviceKind kind;
  int targets;
  std::string pictures;
  double acceptedShare;  ///< of the mean error before
  TouchedBox box{};
  void (*begin)(CalibrationPlay&);
  std::optional<int> bounced = {};  ///< the target whose first touch is wrong
};

void openWholeScreen(CalibrationPlay& play) { play.open("btnCalibrate"); }

std::string calibrate(Stage& stage, const Course& course) {
  auto& touchscreen = stage.demo().touchscreen(course.kind);
  chooseCalibrationMode(stage, course.targets);
  stage.select(touchscreen);
  const auto before = probe(stage, touchscreen, course.box);
  CalibrationPlay play(stage, course.pictures);
  course.begin(play);
  play.touchAllTargets(course.bounced);
  if (course.bounced) play.takeAgain(*course.bounced);
  play.pressOk();
  requireStored(stage, touchscreen);
  stage.pictures().take(course.pictures + "-done");
  const auto after = probe(stage, touchscreen, course.box);
  auto outcome = compared(before, after);
  require(after.mean < course.acceptedShare * before.mean,
          "the calibration does not help enough: " + outcome);
  return outcome;
}

}  // namespace

std::string calibrateInfraredWith25Targets(Stage& stage) {
  return calibrate(
      stage,
      {DeviceKind::Infrared, kTwentyFiveTargets, "infrared-25-targets", 0.1, {}, &openWholeScreen, 14});
}

std::string calibrateOpticalWith4Targets(Stage& stage) {
  return calibrate(stage,
                   {DeviceKind::Optical, kFourTargets, "optical-4-targets", 0.1, {}, &openWholeScreen});
}

std::string calibrateConfigurationOnlyInRegion(Stage& stage) {
  // Three quarters of the screen, at its lower left.
  const auto begin = [](CalibrationPlay& play) {
    play.open("btnRegionCalibrate");
    play.chooseRegion(0.75);
  };
  return calibrate(stage, {DeviceKind::ConfigurationOnly,
                           kTwentyFiveTargets,
                           "region-25-targets",
                           0.1,
                           {{0, 0.25}, {0.75, 0.75}},
                           begin});
}

}  // namespace touchpanel::demo

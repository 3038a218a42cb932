// A calibration run as the driver sees it, and what the calibration does to a touch.
#include <array>
#include <limits>

#include "Glass.h"
#include "driver/CalibrationCurve.h"
#include "support/CalibrationParams.h"

namespace touchpanel::testing {
namespace {

/// "x,y of target", as a control panel reads the last captured touch.
std::string read(const driver::TouchDriver& driver) {
  const auto properties = driver.properties();
  const auto* calibration = properties.dictionary(property::kCalibration);
  return std::to_string(calibration->integer("x")) + ',' + std::to_string(calibration->integer("y")) +
         " of " + std::to_string(calibration->integer("pointId"));
}

TEST(Capture, PublishesEachFingerUpForTheTargetThatIsExpected) {
  struct Step {
    const char* script;
    const char* published;
    const char* why;
  };
  Glass glass;
  for (const auto& [script, published, why] : std::vector<Step>{
           {"0: 111,222; 8: -", "0,0 of 0", "no run, no capture"},
           {"statCalibrate=yes; 100: 1000,2000; 108: 1010,2020", "0,0 of 0", "not before the finger leaves"},
           {"116: -", "1010,2020 of 0", ""},
           {"200: 3000,4000; 208: -", "3000,4000 of 1", ""},
           {"pointId=7", "3000,4000 of 1", "the last touch stays the one of target 1"},
           {"300: 5000,6000; 308: -", "5000,6000 of 7", ""},
           {"statCalibrate=no; 400: 1,1; 408: -", "5000,6000 of 7", "the run is over"},
           {"statCalibrate=yes", "0,0 of 0", "a new run must not find the old run's touch"},
           {"500: 0,0; 508: -", "1,1 of 0", "a touch at the edge is not taken for no touch"},
           {"600: 0@500,600; 608: 0@500,600 1@9000; 616: 1@9000; 624: -", "500,600 of 1", "two fingers"},
           {"700: 0@9000; mode=0; 708: -; 716: 1@700,800; 724: -", "700,800 of 2",
            "not the one that a change ended"},
           {"730: 1@500; 10730: 1@500 0@9000,800; 10738: 1@500", "9000,800 of 3", "dirt is no touch"},
           {"10746: -; 10750: 1000; 10758: 9500,1000; 10766: -", "9000,800 of 3", "dragged, not aimed"},
           {"statCalibrate=no; 10800: 9000; statCalibrate=yes; 10808: 9000; 10816: -", "0,0 of 0",
            "down before the run"}}) {
    glass.play(script);
    EXPECT_EQ(read(glass.driver), published) << why;
  }
}

TEST(Capture, PublishesThePointBeforeTheReleaseThatBelongsToIt) {
  for (const int mode : {0, 1, 2, 3}) {
    SCOPED_TRACE(mode);
    std::vector<std::string> atRelease;
    driver::TouchDriver* self = nullptr;
    driver::TouchDriver driver([&](const OutputFrame& frame) {
      if (!frame.left) atRelease.push_back(read(*self));
    });
    self = &driver;
    driver.setProperty(property::kConfigration, Dictionary{{"mode", mode}});
    driver.setProperty(property::kCalibration, Dictionary{{"statCalibrate", true}});
    driver.process({std::chrono::milliseconds(0), 1, {{{0, 700, 800}}}});
    driver.process({std::chrono::milliseconds(8), 0, {}});
    EXPECT_EQ(atRelease, std::vector<std::string>{"700,800 of 0"});
  }
}

TEST(Capture, PointerOutputIsRawPlainAndWholeMeanwhile) {
  Glass glass;
  glass.calibrate(
      {{"calibrateStatus", true}, {"calibParams", bytesOf(shiftedBy(500, -300))}, {"maxX", 20000}});
  EXPECT_EQ(
      glass.play("mode=1 clickRange=100 smoothness=50; statCalibrate=yes; 0: 1000; 8: 1050,1000; 5000!; "
                 "5008: 30000,1000; 5016: -"),
      "left 1000; drag 1050,1000; drag 30000,1000; up");
  EXPECT_EQ(glass.play("statCalibrate=no; smoothness=0; 6000: 1000; 6008: -"), "move 1500,700; left; up");
}

TEST(Calibration, IsEvaluatedInDoubleRoundedAndClampedToTheTouchArea) {
  auto cubic = shiftedBy(0, -7.6F);
  cubic.X = {1e-9F, 2e-9F, -3e-9F, 4e-9F, 1e-5F, -2e-5F, 3e-5F, 0.25F, 0.5F, 100.6F, {}};
  auto broken = shiftedBy(10, 10);
  broken.X.A30 = std::numeric_limits<float>::quiet_NaN();
  broken.Y.A00 = std::numeric_limits<float>::infinity();
  auto huge = shiftedBy(0, 0);
  huge.X.A30 = std::numeric_limits<float>::max();
  huge.Y.A03 = -std::numeric_limits<float>::max();
  using driver::Point;
  // The first worked out by hand at (3000, 5000): 125 + 150 - 135 + 108 + 250 - 300 + 270 + 1250 + 1500 + 100.6.
  for (const auto& [params, lands] : {std::pair{cubic, Point{3319, 4992}},
                                      {shiftedBy(40000, -40000), {30000, 50}},
                                      {broken, {3000, 31000}},
                                      {huge, {30000, 50}}}) {
    driver::CalibrationCurve curve;
    curve.configure({true, params, 20, 50, 30000, 31000});
    EXPECT_EQ(curve.map({3000, 5000}), lands);
    curve.configure({false, params});
    EXPECT_EQ(curve.map({1000, 1000}), (Point{1000, 1000}));
  }
}

TEST(Calibration, IsTakenOnlyWhenItMapsAGlassOntoAScreen) {
  // x' = a + b x + c y, y' = d + e x + f y + g x^3
  using Row = std::array<float, 7>;
  constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
  const std::vector<std::pair<Row, const char*>> taken = {
      {{0, 1, 0, 0, 0, 1, 0}, "as it is"},
      {{32767, 0, -1, 32767, -1, 0, 0}, "turned and mirrored"},
      {{30000, 0.02F, 0, 200, 0, 0.02F, 0}, "a small glass on a large screen"},
      {{-200000, 16, 0, -300000, 0, 16, 0}, "a small screen under a large glass"},
      {{0, 1, 0, 0, 0, 1, 1e-6F}, "a cubic that goes far astray beyond its region"}};
  const std::vector<std::pair<Row, const char*>> refused = {
      {{0, 0, 0, 0, 0, 0, 0}, "nothing"},
      {{16000, 1e-3F, 0, 16000, 0, 1e-3F, 0}, "everything in one place"},
      {{0, 1, 0, 0, 1, 1e-4F, 0}, "everything on one line"},
      {{40000, 1, 0, 0, 0, 1, 0}, "all beside the screen"},
      {{0, 1e30F, 0, 0, 0, 1e30F, 0}, "a screen that no touch finds"},
      {{0, 1, 0, 0, 0, 1, kNone}, "no number"},
      {{std::numeric_limits<float>::infinity(), 1, 0, 0, 0, 1, 0}, "no end"}};
  Glass glass;
  for (const auto* rows : {&taken, &refused})
    for (const auto& [row, what] : *rows) {
      SCOPED_TRACE(what);
      _CALIB_PARAMS params{};
      params.X.A00 = row[0], params.X.A10 = row[1], params.X.A01 = row[2];
      params.Y.A00 = row[3], params.Y.A10 = row[4], params.Y.A01 = row[5], params.Y.A30 = row[6];
      EXPECT_EQ(driver::mapsSensibly(params), rows == &taken);
      const auto before = glass.driver.properties();
      const auto status = glass.calibrate({{"calibrateStatus", true}, {"calibParam", bytesOf(params)}});
      EXPECT_EQ(status, rows == &taken ? kSuccess : kErrorBadArgument);
      EXPECT_EQ(glass.driver.properties() == before, rows == &refused);
      EXPECT_EQ(glass.calibrate({{"pointId", 1}}), kSuccess);
    }
  EXPECT_EQ(glass.calibrate({{"calibrateStatus", false}, {"calibParams", Bytes(116)}}), kSuccess);
  EXPECT_EQ(glass.calibrate({{"calibrateStatus", true}}), kErrorBadArgument) << "with what is held";
}

}  // namespace
}  // namespace touchpanel::testing

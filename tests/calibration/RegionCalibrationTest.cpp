#include <cmath>

#include "CalibrationRig.h"
#include "DrawnScreens.h"
#include "calibration/RegionCalibration.h"

namespace touchpanel::testing {
namespace {

using Rig = CalibrationRig<RegionCalibration>;

constexpr Size kBox{800, 400};
constexpr Point kFirstTarget{40, 380}, kOk{400, 200};

/// The veil with the rectangle being dragged out.
Operations choice(Rect chosen) {
  return {{"rect", {0, 0, 1920, 1080}, {240, 240, 240, 0.4F}},
          {"rect", chosen, {0.5F, 0.5F, 0.5F, 1}},
          {"outline", chosen, kWhite}};
}

/// The target in a box of 800 x 400.
Operations targetInBox(Point target, const char* seconds = "30") {
  return targetScreen(target, seconds, kBox);
}

void dragOut(Rig& rig, Point from, Point to) {
  rig.press(from);
  rig.drag({(from.x + to.x) / 2, (from.y + to.y) / 2});
  rig.drag(to);
}

/// A run on a box of 800 x 400, chosen with the mouse, so that the driver captures nothing.
struct ChosenBox : Rig {
  explicit ChosenBox(std::int32_t mode) : Rig(mode) {
    start();
    dragOut(*this, {300, 900}, {1100, 500});
    release({1100, 500});
  }
};

TEST(RegionCalibration, LetsARectangleBeChosenBeforeAnythingElseIsShown) {
  Rig rig(4);
  rig.start();
  EXPECT_FALSE(rig.cursor.isHidden);
  EXPECT_EQ(rig.paint(), choice({0, 0, 0, 0}));
  EXPECT_EQ(rig.press({300, 900}), choice({0, 0, 0, 0}));
  EXPECT_EQ(rig.drag({700, 800}), choice({300, 800, 400, 100}));
  EXPECT_EQ(rig.drag({1100, 500}), choice({300, 500, 800, 400}));
  EXPECT_EQ(rig.wait(2), choice({300, 500, 800, 400})) << "the count-down runs unseen";
  EXPECT_EQ(rig.release({1100, 500}), targetInBox(kFirstTarget, "29"));
}

TEST(RegionCalibration, LaysTheGridOutInABoxOfThatSizeAtTheViewsCorner) {
  for (const std::int32_t mode : {4, 25}) {
    ChosenBox rig(mode);
    for (std::int32_t i = 0; i < mode; ++i) {
      const auto target = mode == 4 ? fourPointTarget(i, kBox) : gridTarget(1 + i / 5, i % 5, kBox);
      EXPECT_EQ(rig.paint(), targetInBox(target)) << i;
      const auto k = static_cast<std::size_t>(i);
      EXPECT_EQ((Point{rig.touches().fDspX[k], rig.touches().fDspY[k]}), driverUnits(target, kBox));
      rig.touch(1000 + i * i, 2000 + 7 * i, i);
    }
    EXPECT_EQ(rig.paint(), finishedScreen("30", 0, kBox));
  }
}

TEST(RegionCalibration, TakesTheTouchThatEndsTheDragForTheFirstTarget) {
  Rig rig(4);
  rig.start();
  dragOut(rig, {300, 900}, {1100, 500});
  EXPECT_EQ(rig.touch(7000, 8000, 0, {1100, 500}), targetInBox({760, 380}));
  EXPECT_EQ(rig.touches().fScrX[0], 7000);
  EXPECT_EQ(rig.touches().fDspX[0], 0) << "the first target was never shown";
}

TEST(RegionCalibration, DrawsNegativeBoxesAndBoxesWithoutSizeAsTheyAre) {
  struct Case {
    const char* name;
    Point from, to;
    Size box;
    Point firstTarget, middle;
  };
  const Case cases[] = {
      {"from lower right to upper left", {1100, 500}, {300, 900}, {-800, -400}, {-40, -380}, {-400, -200}},
      {"to the left only", {1100, 900}, {300, 500}, {-800, 400}, {-40, 380}, {-400, 200}},
      {"without a way", {500, 500}, {500, 500}, {0, 0}, {0, 0}, {0, 0}},
      {"far outside the screen", {0, 1080}, {9000, -9000}, {9000, 10080}, {450, 9576}, {4500, 5040}},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.name);
    Rig rig(4);
    rig.start();
    dragOut(rig, each.from, each.to);
    EXPECT_EQ(rig.release(each.to), targetScreen(each.firstTarget, "30", each.box));
    for (std::int32_t i = 0; i < 4; ++i) rig.touch(1000 + i * i, 2000 + 7 * i, i, {-5000, -5000});
    EXPECT_EQ(rig.paint(), finishedScreen("30", 0, each.box));
    rig.click(each.middle);
    EXPECT_TRUE(rig.isClosed()) << "OK is in the middle of the box";
  }
  Rig rig(25);
  rig.start();
  rig.click({500, 500});
  EXPECT_EQ(rig.paint(), targetScreen({0, 0}, "30", {0, 0})) << "a click without any drag";
  EXPECT_TRUE(std::isnan(rig.touches().fDspX[0]));
}

TEST(RegionCalibration, ChangesARunningGridWithALaterDrag) {
  ChosenBox rig(4);
  rig.touchTargets(1);
  dragOut(rig, {0, 300}, {600, 100});
  EXPECT_EQ(rig.paint(), targetScreen({570, 190}, "30", {600, 200}));
  EXPECT_EQ(rig.touches().fDspX[0], driverUnits(kFirstTarget, kBox).x) << "the target taken stays";
  EXPECT_EQ(rig.touches().fDspX[1], driverUnits({570, 190}, {600, 200}).x);
}

TEST(RegionCalibration, SolvesFromWhatThereIsOnReturnUnlessTheGridIsFinished) {
  Rig choosing(4);
  choosing.start();
  choosing.key(kKeyReturn);
  choosing.expectClosed(kExit);
  EXPECT_EQ(choosing.status(), "NO");

  ChosenBox collecting(25);
  collecting.touchTargets(12);
  collecting.sent();
  collecting.key(kKeyReturn);
  collecting.expectClosed(kTried + kExit);
  EXPECT_EQ(collecting.status(), "YES");
  EXPECT_EQ(imageOf(collecting.stored()), imageOf(collecting.context));
  EXPECT_EQ(collecting.files.writeAttempts, 0);

  ChosenBox finished(4);
  finished.touchAll();
  finished.sent();
  finished.key(kKeyReturn);
  EXPECT_FALSE(finished.isClosed());
  EXPECT_EQ(finished.sent(), "");
}

TEST(RegionCalibration, SendsTheBackupUnderItsOwnKeyWhenItIsCancelled) {
  for (const bool byButton : {false, true}) {
    ChosenBox rig(4);
    rig.touchAll();
    if (byButton) rig.press({500, 200});
    rig.sent();
    if (byButton)
      rig.release({500, 200});
    else
      rig.key(kKeyEscape);
    rig.expectClosed((byButton ? kFinished : "") + "calibrateStatus=1 calibParam=before " + kExit);
  }
}

TEST(RegionCalibration, TimeOutKeepsTheTrialAndWritesNothing) {
  Rig choosing(4);
  choosing.start();
  choosing.wait(30);
  EXPECT_FALSE(choosing.isClosed());
  choosing.wait(1);
  choosing.expectClosed(kExit);
  EXPECT_EQ(choosing.status(), "NO");

  ChosenBox finished(4);
  finished.touchAll();
  finished.wait(29);
  EXPECT_FALSE(finished.isClosed());
  finished.sent();
  finished.wait(1);
  finished.expectClosed(kExit);
  EXPECT_EQ(finished.status(), "YES");
  EXPECT_EQ(imageOf(finished.stored()), imageOf(finished.context));
  EXPECT_EQ(finished.files.writeAttempts, 0);
}

TEST(RegionCalibration, OkStoresTheResultAndReCalibrateKeepsTheBox) {
  ChosenBox rig(25);
  rig.touchAll();
  rig.press({300, 200});
  EXPECT_EQ(rig.release({300, 200}), targetInBox(kFirstTarget));
  EXPECT_TRUE(rig.cursor.isHidden);
  rig.touchAll();
  EXPECT_EQ(rig.press(kOk), finishedScreen("30", 2, kBox));
  rig.sent();
  rig.release(kOk);
  rig.expectClosed(kFinished + kExit);
  EXPECT_EQ(imageOf(rig.stored().CalibParams), imageOf(rig.solution()));
  EXPECT_EQ(rig.files.writeAttempts, 1);
  EXPECT_EQ(rig.controller.reloads, 1);
}

TEST(RegionCalibration, StaysOnScreenWithoutADeviceUntilTheRunEnds) {
  ChosenBox rig(4);
  rig.registry.remove(rig.handle);
  EXPECT_EQ(rig.paint(), targetInBox(kFirstTarget));
  rig.view->mouseUp({1, 1});
  rig.wait(30);
  EXPECT_FALSE(rig.isClosed());
  rig.wait(1);
  EXPECT_TRUE(rig.isClosed());
}

}  // namespace
}  // namespace touchpanel::testing

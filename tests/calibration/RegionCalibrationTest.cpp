#include <cmath>

#include <gtest/gtest.h>

#include "CalibrationRig.h"
#include "DrawnScreens.h"
#include "calibration/CalibrationSolver.h"
#include "calibration/RegionCalibration.h"

namespace touchpanel::testing {
namespace {

using Rig = CalibrationRig<RegionCalibration>;
using Writes = std::vector<FakeRegistry::Write>;

/// The veil with the rectangle being dragged out.
Operations choice(Rect chosen) {
  return {FilledRect{{0, 0, 1920, 1080}, {240, 240, 240, 0.4F}}, FilledRect{chosen, {0.5F, 0.5F, 0.5F, 1}},
          StrokedRect{chosen, kWhite}};
}

Operations targetIn(Size box, Point target, const std::string& seconds = "30") {
  auto all = background(box);
  all += countDown(seconds, {box.width / 2 - 10, box.height / 2 - 150});
  all += bullsEye(target);
  all += note({box.width / 2 - 250, box.height / 2});
  return all;
}

Operations finishedIn(Size box, int held = 0) {
  auto all = background(box);
  all += countDown("30", {box.width / 2 - 10, box.height / 2 - 150});
  for (const int each : {0, held}) {
    all += buttons({box.width / 2, box.height / 2}, each);
    all += note({box.width / 2 - 250, box.height / 2 - 130});
  }
  return all;
}

void drag(Rig& rig, Point from, Point to) {
  rig.view->mouseDown(from);
  rig.settle();
  rig.view->mouseDragged({(from.x + to.x) / 2, (from.y + to.y) / 2});
  rig.settle();
  rig.view->mouseDragged(to);
  rig.settle();
}

/// A box of 800 x 400, dragged by mouse so that the driver captures nothing.
void choose(Rig& rig) {
  drag(rig, {300, 900}, {1100, 500});
  rig.view->mouseUp({1100, 500});
  rig.settle();
}

constexpr Size kBox{800, 400};

TEST(RegionCalibration, LetsARectangleBeChosenBeforeAnythingElseIsShown) {
  Rig rig(4);
  rig.start();
  EXPECT_FALSE(rig.cursor.isHidden);
  EXPECT_EQ(rig.paint(), choice({0, 0, 0, 0}));
  rig.view->mouseDown({300, 900});
  EXPECT_EQ(rig.settle(), choice({0, 0, 0, 0}));
  rig.view->mouseDragged({700, 800});
  EXPECT_EQ(rig.settle(), choice({300, 800, 400, 100}));
  rig.view->mouseDragged({1100, 500});
  EXPECT_EQ(rig.settle(), choice({300, 500, 800, 400}));
  rig.wait(2);
  EXPECT_EQ(rig.paint(), choice({300, 500, 800, 400})) << "the count-down runs unseen";
  rig.view->mouseUp({1100, 500});
  EXPECT_EQ(rig.settle(), targetIn(kBox, {40, 380}, "29"));
}

TEST(RegionCalibration, LaysTheGridOutInABoxOfThatSizeAtTheViewsCorner) {
  for (const std::int32_t mode : {4, 25}) {
    SCOPED_TRACE(mode);
    Rig rig(mode);
    rig.start();
    choose(rig);
    auto drawn = rig.paint();
    for (std::int32_t i = 0; i < mode; ++i) {
      const auto target = mode == 4 ? fourPointTarget(i, kBox) : gridTarget(1 + i / 5, i % 5, kBox);
      EXPECT_EQ(drawn, targetIn(kBox, target)) << i;
      drawn = rig.touch(Rig::rawX(i, mode), Rig::rawY(i, mode), i);
      EXPECT_EQ(rig.touches().fDspX[static_cast<std::size_t>(i)], driverUnits(target, kBox).x);
      EXPECT_EQ(rig.touches().fDspY[static_cast<std::size_t>(i)], driverUnits(target, kBox).y);
    }
    EXPECT_EQ(drawn, finishedIn(kBox));
    const auto writes = rig.sent();
    ASSERT_EQ(writes.size(), 3U);
    EXPECT_EQ(writes[0], rig.message.mode(2));
    EXPECT_EQ(writes[1], rig.message.capture(false));
    EXPECT_EQ(writes[2], rig.message.saved(rig.view->run().deviceContext().CalibParams));
  }
}

TEST(RegionCalibration, TakesTheTouchThatEndsTheDragForTheFirstTarget) {
  Rig rig(4);
  rig.start();
  drag(rig, {300, 900}, {1100, 500});
  EXPECT_EQ(rig.touch(7000, 8000, 0, {1100, 500}), targetIn(kBox, {760, 380}));
  EXPECT_EQ(rig.touches().iTouchIndex, 1);
  EXPECT_EQ(rig.touches().fScrX[0], 7000);
  EXPECT_EQ(rig.touches().fDspX[0], 0) << "the first target was never shown";
}

TEST(RegionCalibration, DrawsNegativeBoxesAndBoxesWithoutSizeAsTheyAre) {
  struct Case {
    const char* name;
    Point from, to;
    Size box;
    Point firstTarget, hiddenButton;
  };
  const Case cases[] = {
      {"from lower right to upper left", {1100, 500}, {300, 900}, {-800, -400}, {-40, -380}, {-400, -200}},
      {"to the left only", {1100, 900}, {300, 500}, {-800, 400}, {-40, 380}, {-400, 200}},
      {"a click without a drag", {500, 500}, {500, 500}, {0, 0}, {0, 0}, {0, 0}},
      {"far outside the screen", {0, 1080}, {9000, -9000}, {9000, 10080}, {450, 9576}, {4500, 5040}},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.name);
    Rig rig(4);
    rig.start();
    drag(rig, each.from, each.to);
    rig.view->mouseUp(each.to);
    EXPECT_EQ(rig.settle(), targetIn(each.box, each.firstTarget));
    for (std::int32_t i = 0; i < 4; ++i) rig.touch(Rig::rawX(i, 4), Rig::rawY(i, 4), i, {-5000, -5000});
    EXPECT_EQ(rig.paint(), finishedIn(each.box));
    rig.click(each.hiddenButton);
    EXPECT_TRUE(rig.isClosed()) << "OK is in the middle of the box";
  }
}

TEST(RegionCalibration, AClickWithoutAnyDragLeavesABoxWithoutSize) {
  Rig rig(25);
  rig.start();
  rig.click({500, 500});
  EXPECT_EQ(rig.paint(), targetIn({0, 0}, {0, 0}));
  EXPECT_TRUE(std::isnan(rig.touches().fDspX[0]));
  rig.touchAll();
  rig.key(kKeyEscape);
  EXPECT_TRUE(rig.isClosed());
}

TEST(RegionCalibration, ChangesARunningGridWithALaterDrag) {
  Rig rig(4);
  rig.start();
  choose(rig);
  rig.touch(Rig::rawX(0, 4), Rig::rawY(0, 4), 0);
  drag(rig, {0, 300}, {600, 100});
  EXPECT_EQ(rig.paint(), targetIn({600, 200}, {570, 190}));
  EXPECT_EQ(rig.touches().fDspX[0], driverUnits({40, 380}, kBox).x) << "the target taken stays";
  EXPECT_EQ(rig.touches().fDspX[1], driverUnits({570, 190}, {600, 200}).x);
}

TEST(RegionCalibration, SolvesFromWhatThereIsOnReturnWhileCollecting) {
  Rig rig(25);
  rig.start();
  choose(rig);
  for (std::int32_t i = 0; i < 12; ++i) rig.touch(Rig::rawX(i, 25), Rig::rawY(i, 25), i);
  rig.sent();
  rig.key(kKeyReturn);
  EXPECT_TRUE(rig.isClosed());
  auto expected = rig.context.CalibParams;
  const auto& touches = rig.touches();
  ASSERT_TRUE(generateCalibParam(touches.fDspX.data(), touches.fDspY.data(), touches.fScrX.data(),
                                 touches.fScrY.data(), 25, expected.X, expected.Y, true, {}));
  EXPECT_EQ(rig.sent(),
            (Writes{rig.message.saved(expected), rig.message.mode(3), rig.message.capture(false)}));
  EXPECT_EQ(rig.entry->text("CalibrateStatus"), "YES");
  EXPECT_EQ(imageOf(rig.stored()), imageOf(rig.context));
  EXPECT_TRUE(rig.device.calls.empty());
}

TEST(RegionCalibration, ReturnClosesWhileChoosingAndDoesNothingOnTheFinishedGrid) {
  Rig choosing(4);
  choosing.start();
  choosing.key(kKeyReturn);
  EXPECT_TRUE(choosing.isClosed());
  EXPECT_EQ(choosing.sent(), (Writes{choosing.message.mode(3), choosing.message.capture(false)}));
  EXPECT_EQ(choosing.entry->text("CalibrateStatus"), "NO");

  Rig finished(4);
  finished.start();
  choose(finished);
  finished.touchAll();
  finished.sent();
  finished.key(kKeyReturn);
  EXPECT_FALSE(finished.isClosed());
  EXPECT_EQ(finished.sent(), Writes{});
}

TEST(RegionCalibration, SendsTheBackupUnderItsOwnKeyWhenItIsCancelled) {
  for (const bool byButton : {false, true}) {
    Rig rig(4);
    rig.start();
    choose(rig);
    rig.touchAll();
    rig.sent();
    if (byButton)
      rig.click({500, 200});
    else
      rig.key(kKeyEscape);
    EXPECT_TRUE(rig.isClosed());
    const auto writes = rig.sent();
    const auto& message = rig.message;
    EXPECT_EQ((Writes{writes.end() - 3, writes.end()}),
              (Writes{message.cancelled(true, rig.context.CalibParams, "calibParam"), message.mode(3),
                      message.capture(false)}));
  }
}

TEST(RegionCalibration, TimeOutKeepsTheTrialAndWritesNothing) {
  for (const bool finished : {false, true}) {
    SCOPED_TRACE(finished);
    Rig rig(4);
    rig.start();
    if (finished) {
      choose(rig);
      rig.touchAll();
      rig.wait(29);
    } else {
      rig.wait(30);
    }
    EXPECT_FALSE(rig.isClosed());
    rig.sent();
    const auto status = rig.entry->text("CalibrateStatus");
    rig.runLoop.advance(std::chrono::seconds(1));
    EXPECT_TRUE(rig.isClosed());
    EXPECT_EQ(rig.sent(), (Writes{rig.message.mode(3), rig.message.capture(false)}));
    EXPECT_EQ(rig.entry->text("CalibrateStatus"), status);
    EXPECT_EQ(imageOf(rig.stored()), imageOf(rig.context));
    EXPECT_TRUE(rig.device.calls.empty());
  }
}

TEST(RegionCalibration, OkWritesTheResultAndReCalibrateKeepsTheBox) {
  Rig rig(25);
  rig.start();
  choose(rig);
  rig.touchAll();
  rig.click({300, 200});
  EXPECT_TRUE(rig.cursor.isHidden);
  EXPECT_EQ(rig.paint(), targetIn(kBox, {40, 380}));
  rig.touchAll();
  auto expected = rig.view->run().deviceContext();
  expected.DeviceConfig.CalibrateStatus = 1;
  rig.view->mouseDown({400, 200});
  EXPECT_EQ(rig.settle(), finishedIn(kBox, 2));
  rig.view->mouseUp({400, 200});
  rig.settle();
  EXPECT_TRUE(rig.isClosed());
  EXPECT_EQ(imageOf(rig.stored()), imageOf(expected));
  EXPECT_EQ(imageOf(rig.touchscreen.stored().calibParams), imageOf(expected.CalibParams));
  EXPECT_EQ(rig.controller.reloads, 1);
  EXPECT_EQ(rig.presentation.calls, (std::vector<FakePresentation::Call>{{0, 1}}));
}

TEST(RegionCalibration, StaysOnScreenWithoutADeviceUntilTheRunEnds) {
  Rig rig(4);
  rig.start();
  choose(rig);
  rig.registry.remove(rig.handle);
  EXPECT_EQ(rig.paint(), targetIn(kBox, {40, 380}));
  rig.view->mouseUp({1, 1});
  rig.wait(30);
  EXPECT_FALSE(rig.isClosed());
  rig.wait(1);
  EXPECT_TRUE(rig.isClosed());
}

TEST(RegionCalibration, DoesNothingAnyMoreOnceItIsClosed) {
  Rig rig(4);
  rig.start();
  choose(rig);
  rig.key(kKeyEscape);
  rig.sent();
  rig.view->mouseDown({1, 1});
  rig.view->mouseDragged({2, 2});
  rig.view->mouseUp({2, 2});
  rig.view->keyDown(kKeyReturn);
  rig.view->keyDown(kKeyEscape);
  rig.runLoop.advance(std::chrono::seconds(100));
  EXPECT_EQ(rig.paint(), Operations{});
  EXPECT_EQ(rig.registry.writes, Writes{});
  EXPECT_EQ(rig.record->redrawRequests, 0);
  EXPECT_EQ(rig.presentation.calls.size(), 1U);
}

}  // namespace
}  // namespace touchpanel::testing

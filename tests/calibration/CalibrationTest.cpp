#include <limits>

#include "CalibrationRig.h"
#include "DrawnScreens.h"
#include "calibration/Calibration.h"

namespace touchpanel::testing {
namespace {

using Rig = CalibrationRig<Calibration>;

constexpr Point kReCalibrate{860, 540}, kOk{960, 540}, kCancel{1060, 540}, kNoButton{100, 100};
constexpr Point kFirstTarget{96, 1026}, kSecondTarget{1824, 1026};

TEST(Calibration, HidesTheCursorAndPutsTheDriverIntoCaptureWhenItStarts) {
  Rig rig(4);
  EXPECT_TRUE(rig.cursor.isHidden);
  EXPECT_EQ(rig.runLoop.timerCount(), 0U);
  rig.view->setCalibrateDict(rig.entry, rig.controller);
  EXPECT_EQ(rig.sent(), kCaptureOn);
  EXPECT_EQ(rig.runLoop.timerCount(), 1U);
  rig.view.reset();
  EXPECT_EQ(rig.runLoop.timerCount(), 0U) << "destroyed in the middle of a run";
}

TEST(Calibration, VisitsTheTargetsRowByRowFromTheTop) {
  for (const std::int32_t mode : {4, 25}) {
    Rig rig(mode);
    rig.start();
    auto drawn = rig.paint();
    for (std::int32_t i = 0; i < mode; ++i) {
      const auto x = mode == 4 ? 96 + i % 2 * 1728 : 96 + i % 5 * 432;
      const auto y = mode == 4 ? 1026 - i / 2 * 972 : 1026 - i / 5 * 243;
      const Point target{static_cast<float>(x), static_cast<float>(y)};
      EXPECT_EQ(drawn, targetScreen(target)) << i;
      drawn = rig.touch(1000 + i, 2000 + i, i);
      const auto& taken = rig.touches();
      const auto k = static_cast<std::size_t>(i);
      EXPECT_EQ((Point{taken.fDspX[k], taken.fDspY[k]}), driverUnits(target, kScreen)) << i;
      EXPECT_EQ(taken.fScrX[k], static_cast<float>(1000 + i));
      EXPECT_EQ(taken.fScrY[k], static_cast<float>(2000 + i));
    }
    EXPECT_EQ(drawn, finishedScreen());
  }
}

TEST(Calibration, IgnoresTouchesThatDoNotBelongToTheTargetShown) {
  const std::int32_t far = std::numeric_limits<std::int32_t>::max();
  const std::string resynchronised = "pointId=1 ";
  const std::pair<std::optional<Dictionary>, std::string> cases[] = {
      {std::nullopt, ""},
      {Dictionary{{"x", 0}, {"y", 5}, {"pointId", 1}}, ""},
      {Dictionary{{"x", 5}, {"y", 0}, {"pointId", 1}}, ""},
      {Dictionary{{"x", 5}, {"y", 5}, {"pointId", 0}}, resynchronised},
      {Dictionary{{"x", 5}, {"y", 5}, {"pointId", far}}, resynchronised},
  };
  Rig rig(25);
  rig.start();
  rig.touchTargets(1);
  for (const auto& [captured, answer] : cases) {
    rig.publish(captured);
    rig.view->mouseUp({10, 10});
    EXPECT_EQ(rig.sent(), answer);
    EXPECT_EQ(rig.record->redrawRequests, 0);
    EXPECT_EQ(rig.touches().iTouchIndex, 1);
  }
}

TEST(Calibration, TriesTheSolutionOnceAndShowsTheButtons) {
  for (const std::int32_t mode : {4, 25}) {
    SCOPED_TRACE(mode);
    Rig rig(mode);
    rig.start();
    EXPECT_EQ(rig.touchAll(), finishedScreen());
    EXPECT_EQ(rig.sent(), kFinished + kTried);
    EXPECT_FALSE(rig.cursor.isHidden);
    EXPECT_EQ(rig.status(), "YES");
    EXPECT_EQ(imageOf(rig.stored()), imageOf(rig.context)) << "the entry changes on OK only";
    EXPECT_EQ(rig.release(kNoButton), finishedScreen());
    EXPECT_EQ(rig.sent(), kFinished);
  }
}

TEST(Calibration, CountsDownAndCancelsOnTheTickAfterTheLastSecond) {
  Rig rig(4);
  rig.start();
  for (int seconds = 30; seconds >= 1; --seconds)
    EXPECT_EQ(rig.wait(1), targetScreen(kFirstTarget, std::to_string(seconds)));
  EXPECT_EQ(rig.sent(), "");
  rig.wait(1);
  rig.expectClosed(kCancelled + kExit);
}

TEST(Calibration, CountsFromTwentyNineAfterEveryTouchAndWhileTheButtonsAreShown) {
  for (const std::int32_t touched : {1, 4}) {
    const auto screen = [&](const char* seconds) {
      return touched == 4 ? finishedScreen(seconds) : targetScreen(kSecondTarget, seconds);
    };
    Rig rig(4);
    rig.start();
    rig.wait(20);
    EXPECT_EQ(rig.touchTargets(touched), screen("11")) << "the number changes with the tick";
    EXPECT_EQ(rig.wait(1), screen("29"));
    EXPECT_EQ(rig.wait(28), screen("1"));
    rig.sent();
    rig.wait(1);
    rig.expectClosed(kCancelled + kExit);
    EXPECT_EQ(rig.files.writeAttempts, 0);
  }
}

TEST(Calibration, OkAndReturnStoreTheResult) {
  for (const bool byKey : {false, true}) {
    Rig rig(4);
    rig.start();
    rig.touchAll();
    rig.sent();
    auto expected = rig.context;
    expected.CalibParams = rig.solution();
    expected.DeviceConfig.CalibrateStatus = 1;
    if (byKey) {
      rig.key(kKeyReturn);
    } else {
      rig.press(kOk);
      EXPECT_EQ(rig.release(kOk), backdrop() + buttons(0)) << "nothing more once the run is over";
    }
    rig.expectClosed((byKey ? "" : kFinished + kFinished) + kExit);
    EXPECT_EQ(rig.controller.reloads, 1);
    EXPECT_EQ(imageOf(rig.stored()), imageOf(expected));
    EXPECT_EQ(rig.files.files["device.plist"],
              (Dictionary{{"CalibrateStatus", true}, {"CalibParams", bytesOf(expected.CalibParams)}}));
  }
}

TEST(Calibration, CancelAndEscapeRestoreTheBackupAtAnyTime) {
  for (const auto& [touched, byButton, statusBefore] :
       {std::tuple(0, false, 1), {3, false, 0}, {4, false, 7}, {4, true, 0}}) {
    Rig rig(4);
    rig.context.DeviceConfig.CalibrateStatus = static_cast<std::uint8_t>(statusBefore);
    storeContext(*rig.entry, rig.context);
    rig.start();
    rig.touchTargets(touched);
    if (byButton) rig.press(kCancel);
    rig.sent();
    if (byButton)
      rig.release(kCancel);
    else
      rig.key(kKeyEscape);
    const std::string status = statusBefore == 0 ? "0" : "1";
    rig.expectClosed((byButton ? kFinished : "") + "calibrateStatus=" + status + " calibParams=before " +
                     kExit);
    EXPECT_EQ(rig.status(), statusBefore == 0 ? "NO" : "YES");
    EXPECT_EQ(imageOf(rig.stored()), imageOf(rig.context));
    EXPECT_EQ(rig.files.writeAttempts + rig.controller.reloads, 0);
  }
}

TEST(Calibration, ReturnBeforeTheGridIsFinishedAndOtherKeysDoNothing) {
  Rig rig(25);
  rig.start();
  for (const std::uint16_t key : {kKeyReturn, std::uint16_t{0}, std::uint16_t{65535}}) rig.view->keyDown(key);
  rig.view->mouseDown(kOk);
  rig.view->mouseDragged(kOk);
  EXPECT_EQ(rig.sent(), "");
  EXPECT_EQ(rig.record->redrawRequests, 0);
  EXPECT_EQ(rig.paint(), targetScreen(kFirstTarget));
}

TEST(Calibration, ReCalibrateCollectsAgainWithTheTrialStillInTheDriver) {
  Rig rig(25);
  rig.start();
  rig.touchAll();
  rig.wait(25);
  rig.press(kReCalibrate);
  rig.sent();
  EXPECT_EQ(rig.release(kReCalibrate), targetScreen(kFirstTarget, "5"));
  EXPECT_EQ(rig.sent(), kFinished + kCaptureOn);
  EXPECT_TRUE(rig.cursor.isHidden);
  EXPECT_EQ(rig.status(), "YES");
  EXPECT_EQ(rig.wait(1), targetScreen(kFirstTarget, "29"));
  rig.touchAll();
  EXPECT_EQ(rig.sent(), kFinished + kTried) << "the second grid is tried as well";
  rig.key(kKeyEscape);
  rig.expectClosed(kCancelled + kExit);
}

TEST(Calibration, DrawsTheButtonThatIsHeldAndPerformsTheOneUnderTheRelease) {
  enum class Outcome { Nothing, Cancelled, Collecting };
  struct Case {
    const char* name;
    Point press;
    int held;
    Point release;
    Outcome outcome;
  };
  const Case cases[] = {
      {"ReCalibrate held, released outside", kReCalibrate, 1, kNoButton, Outcome::Nothing},
      {"OK held, released outside", kOk, 2, kNoButton, Outcome::Nothing},
      {"Cancel held, released on its edge", kCancel, 3, {1100, 540}, Outcome::Nothing},
      {"OK held, released on Cancel", kOk, 2, kCancel, Outcome::Cancelled},
      {"nothing held, released on Cancel", kNoButton, 0, {1020.5F, 520.5F}, Outcome::Cancelled},
      {"on the edge of OK", {920, 540}, 0, {1000, 540}, Outcome::Nothing},
      {"above OK", {960, 560}, 0, {960, 520}, Outcome::Nothing},
      {"between two buttons", {910, 540}, 0, {1010, 540}, Outcome::Nothing},
      {"just inside ReCalibrate", {820.5F, 559.5F}, 1, {899.5F, 520.5F}, Outcome::Collecting},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.name);
    Rig rig(4);
    rig.start();
    rig.touchAll();
    rig.view->mouseDown(each.press);
    EXPECT_EQ(rig.record->redrawRequests, each.held == 0 ? 0 : 1);
    EXPECT_EQ(rig.paint(), finishedScreen("30", each.held));
    rig.view->mouseUp(each.release);
    EXPECT_EQ(rig.paint(), each.outcome == Outcome::Nothing ? finishedScreen() : backdrop() + buttons(0));
    EXPECT_EQ(rig.isClosed(), each.outcome == Outcome::Cancelled);
    const bool collecting = each.outcome == Outcome::Collecting;
    EXPECT_EQ(rig.settle(), collecting ? targetScreen(kFirstTarget) : Operations{});
  }
}

TEST(Calibration, PerformsNothingWhileAButtonIsHeldAgain) {
  Rig rig(4);
  rig.start();
  rig.touchAll();
  rig.view->mouseUp(kOk);
  EXPECT_EQ(rig.press(kCancel), finishedScreen("30", 3));
  EXPECT_FALSE(rig.isClosed());
}

TEST(Calibration, ClosesWithoutAWordWhenTheDriverInstanceIsGone) {
  for (const std::int32_t touched : {0, 4}) {
    Rig rig(4);
    rig.start();
    rig.touchTargets(touched);
    rig.sent();
    rig.registry.remove(rig.handle);
    rig.view->mouseUp(kOk);
    EXPECT_EQ(rig.paint(), Operations{});
    rig.expectClosed("");
    EXPECT_EQ(rig.status(), touched == 4 ? "YES" : "NO");
    EXPECT_EQ(rig.files.writeAttempts, 0);
  }
}

TEST(Calibration, WorksOnAnEntryThatWasDroppedFromTheListMeanwhile) {
  Rig rig(4);
  rig.start();
  const std::weak_ptr<Dictionary> entry = rig.entry;
  rig.touchAll();
  rig.entry.reset();
  rig.key(kKeyReturn);
  EXPECT_TRUE(rig.isClosed());
  EXPECT_EQ(rig.files.writeAttempts, 1);
  rig.view.reset();
  EXPECT_TRUE(entry.expired());
}

TEST(Calibration, OffersOkAfterTouchesWithoutASolution) {
  Rig rig(4);
  rig.start();
  for (std::int32_t i = 0; i < 4; ++i) rig.touch(5000, 5000, i);
  EXPECT_EQ(rig.paint(), finishedScreen());
  EXPECT_EQ(rig.sent(), kFinished + kFinished);
  EXPECT_EQ(rig.status(), "NO");
  rig.key(kKeyReturn);
  auto expected = rig.context;
  expected.DeviceConfig.CalibrateStatus = 1;
  EXPECT_EQ(imageOf(rig.stored()), imageOf(expected));
}

TEST(Calibration, ShowsNoTargetInAModeWithoutAGrid) {
  for (const std::int32_t mode : {0, 5, 24, 26, std::numeric_limits<std::int32_t>::min()}) {
    SCOPED_TRACE(mode);
    Rig rig(mode);
    rig.start();
    EXPECT_EQ(rig.touch(1000, 2000, 0, kOk), backdrop());
    rig.click(kCancel);
    rig.key(kKeyReturn);
    EXPECT_EQ(rig.sent(), "");
    rig.wait(31);
    rig.expectClosed(kCancelled + kExit);
  }
}

TEST(Calibration, GoesOnWithEntriesThatLackOrMistypeTheirKeys) {
  for (const Value& image : {Value(Bytes()), Value(Bytes(10, 7)), Value(Bytes(4000, 7)), Value("293")}) {
    Rig rig(25);
    *rig.entry = {{"CalibrateMode", 25}, {"Handle", rig.entry->integer("Handle")}, {"DeviceContext", image}};
    rig.start();
    EXPECT_EQ(rig.touchAll(), finishedScreen());
    rig.key(kKeyReturn);
    EXPECT_TRUE(rig.isClosed());
    EXPECT_EQ(rig.entry->bytes("DeviceContext")->size(), 293U);
  }
  Rig rig(25);
  rig.entry->remove("Handle");
  rig.start();
  EXPECT_TRUE(rig.isClosed()) << "without a handle there is no driver instance to probe";
}

TEST(Calibration, SurvivesAModeThatChangesDuringTheRun) {
  for (const auto& [before, touched, after] : {std::tuple(4, 3, 25), {25, 10, 4}, {25, 25, 4}}) {
    Rig rig(before);
    rig.start();
    rig.touchTargets(touched);
    rig.entry->set("CalibrateMode", after);
    for (std::int32_t i = touched; i < 40; ++i) rig.touch(1000 + i, 2000 + i, i);
    rig.wait(31);
    EXPECT_TRUE(rig.isClosed());
  }
}

}  // namespace
}  // namespace touchpanel::testing

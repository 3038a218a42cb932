#include <limits>

#include <gtest/gtest.h>

#include "CalibrationRig.h"
#include "DrawnScreens.h"
#include "calibration/Calibration.h"
#include "calibration/CalibrationSolver.h"

namespace touchpanel::testing {
namespace {

using Rig = CalibrationRig<Calibration>;
using Writes = std::vector<FakeRegistry::Write>;

constexpr Point kReCalibrate{860, 540}, kOk{960, 540}, kCancel{1060, 540}, kNoButton{100, 100};

/// The trial that the rig's touches lead to, from targets that are given by their fractions of the screen.
_CALIB_PARAMS solutionFor(Rig& rig) {
  _CALIB_PARAMS params = rig.context.CalibParams;
  const auto count = rig.entry->integer("CalibrateMode");
  std::array<float, 25> targetX{}, targetY{}, rawX{}, rawY{};
  for (std::int32_t i = 0; i < count; ++i) {
    const Size screen{1920, 1080};
    const auto target =
        driverUnits(count == 4 ? fourPointTarget(i, screen) : gridTarget(1 + i / 5, i % 5, screen), screen);
    const auto k = static_cast<std::size_t>(i);
    targetX[k] = target.x;
    targetY[k] = target.y;
    rawX[k] = static_cast<float>(Rig::rawX(i, count));
    rawY[k] = static_cast<float>(Rig::rawY(i, count));
  }
  EXPECT_TRUE(generateCalibParam(targetX.data(), targetY.data(), rawX.data(), rawY.data(), count, params.X,
                                 params.Y, count == 25, {rawX.data(), rawY.data()}));
  return params;
}

/// What exit() leaves behind, after the messages in `before`.
void expectClosed(Rig& rig, Writes before) {
  before.push_back(rig.message.mode(3));
  before.push_back(rig.message.capture(false));
  EXPECT_EQ(rig.sent(), before);
  EXPECT_TRUE(rig.isClosed());
  EXPECT_EQ(rig.runLoop.timerCount(), 0U);
  EXPECT_FALSE(rig.cursor.isHidden);
  EXPECT_EQ(rig.presentation.calls, (std::vector<FakePresentation::Call>{{0, 1}}));
}

TEST(Calibration, HidesTheCursorAndPutsTheDriverIntoCaptureWhenItStarts) {
  Rig rig(4);
  EXPECT_TRUE(rig.cursor.isHidden);
  EXPECT_EQ(rig.runLoop.timerCount(), 0U);
  rig.view->setCalibrateDict(rig.entry, rig.controller);
  EXPECT_EQ(rig.sent(), Writes{rig.message.capture(true)});
  EXPECT_EQ(rig.runLoop.timerCount(), 1U);
  EXPECT_TRUE(rig.view->acceptsFirstResponder());
  EXPECT_FALSE(rig.view->isOpaque());
}

TEST(Calibration, VisitsFourTargetsFromUpperLeftToLowerRight) {
  Rig rig(4);
  rig.start();
  const Point targets[] = {{96, 1026}, {1824, 1026}, {96, 54}, {1824, 54}};
  auto drawn = rig.paint();
  for (std::int32_t i = 0; i < 4; ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(drawn, targetScreen(targets[i], "30"));
    drawn = rig.touch(1000 + i, 2000 + i, i);
  }
  EXPECT_EQ(drawn, finishedScreen("30"));
  EXPECT_EQ(rig.touches().iObjRow, 1);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(rig.touches().fScrX[i], 1000.0F + static_cast<float>(i));
    EXPECT_EQ(rig.touches().fScrY[i], 2000.0F + static_cast<float>(i));
    EXPECT_EQ(rig.touches().fDspX[i], driverUnits(targets[i], {1920, 1080}).x);
    EXPECT_EQ(rig.touches().fDspY[i], driverUnits(targets[i], {1920, 1080}).y);
  }
}

TEST(Calibration, VisitsTwentyFiveTargetsRowByRowFromTheTop) {
  Rig rig(25);
  rig.start();
  auto drawn = rig.paint();
  for (std::int32_t i = 0; i < 25; ++i) {
    SCOPED_TRACE(i);
    const Point target{static_cast<float>(96 + i % 5 * 432), static_cast<float>(1026 - i / 5 * 243)};
    EXPECT_EQ(drawn, targetScreen(target, "30"));
    EXPECT_EQ(rig.touches().iObjRow, 1 + i / 5);
    EXPECT_EQ(rig.touches().iObjPoints, i % 5);
    drawn = rig.touch(1000 + i, 2000 + i, i);
    const auto k = static_cast<std::size_t>(i);
    EXPECT_EQ(rig.touches().fDspX[k], driverUnits(target, {1920, 1080}).x);
    EXPECT_EQ(rig.touches().fDspY[k], driverUnits(target, {1920, 1080}).y);
    EXPECT_EQ(rig.touches().fScrX[k], 1000.0F + static_cast<float>(i));
  }
  EXPECT_EQ(drawn, finishedScreen("30"));
  EXPECT_EQ(rig.touches().iObjRow, 6);
  EXPECT_EQ(rig.touches().iTouchIndex, 25);
}

TEST(Calibration, FillsScreensOfAnySize) {
  for (const std::int32_t mode : {4, 25}) {
    Rig large(mode, {0, 0, 7680, 4320});
    large.start();
    auto first = background({7680, 4320});
    first += countDown("30", {3830, 2010});
    first += bullsEye({384, 4104});
    first += note({3590, 2160});
    EXPECT_EQ(large.paint(), first);
    large.touchAll();
    large.click({3840, 2160});
    EXPECT_TRUE(large.isClosed());
    EXPECT_EQ(large.stored().DeviceConfig.CalibrateStatus, 1);

    Rig tiny(mode, {0, 0, 1, 1});
    tiny.start();
    auto only = background({1, 1});
    only += countDown("30", {-9.5F, -149.5F});
    only += bullsEye({0.05F, 0.95F});
    only += note({-249.5F, 0.5F});
    EXPECT_EQ(tiny.paint(), only);
    tiny.touchAll();
    EXPECT_TRUE(tiny.isClosed()) << "the last touch cannot but land on OK";
    EXPECT_EQ(tiny.stored().DeviceConfig.CalibrateStatus, 1);
  }
}

TEST(Calibration, IgnoresTouchesThatDoNotBelongToTheTargetShown) {
  struct Case {
    const char* name;
    std::optional<Dictionary> published;
    bool resynchronises;
  };
  const std::int32_t far = std::numeric_limits<std::int32_t>::max();
  const Case cases[] = {
      {"no properties at all", std::nullopt, false},
      {"nothing captured ever", Dictionary{}, false},
      {"not a dictionary", Dictionary{{"calibration", 7}}, false},
      {"x is 0", Dictionary{{"calibration", Dictionary{{"x", 0}, {"y", 5}, {"pointId", 1}}}}, false},
      {"y is 0", Dictionary{{"calibration", Dictionary{{"x", 5}, {"y", 0}, {"pointId", 1}}}}, false},
      {"y is missing", Dictionary{{"calibration", Dictionary{{"x", 5}, {"pointId", 1}}}}, false},
      {"x is a text", Dictionary{{"calibration", Dictionary{{"x", "5"}, {"y", 5}, {"pointId", 1}}}}, false},
      {"an earlier target", Dictionary{{"calibration", Dictionary{{"x", 5}, {"y", 5}, {"pointId", 0}}}},
       true},
      {"a later target", Dictionary{{"calibration", Dictionary{{"x", 5}, {"y", 5}, {"pointId", far}}}}, true},
      {"no target", Dictionary{{"calibration", Dictionary{{"x", 5}, {"y", 5}}}}, true},
  };
  for (const std::int32_t mode : {4, 25}) {
    Rig rig(mode);
    rig.start();
    rig.touch(1000, 2000, 0);
    for (const auto& each : cases) {
      SCOPED_TRACE(each.name);
      rig.registry.objects.at(rig.handle).properties = each.published;
      rig.view->mouseUp({10, 10});
      EXPECT_EQ(rig.sent(), each.resynchronises ? Writes{rig.message.pointId(1)} : Writes{});
      EXPECT_EQ(rig.touches().iTouchIndex, 1);
      EXPECT_EQ(rig.record->redrawRequests, 0);
    }
    rig.touch(1001, 2001, 1);
    EXPECT_EQ(rig.touches().iTouchIndex, 2);
  }
}

TEST(Calibration, TriesTheSolutionOnceAndShowsTheButtons) {
  for (const std::int32_t mode : {4, 25}) {
    SCOPED_TRACE(mode);
    Rig rig(mode);
    rig.start();
    EXPECT_EQ(rig.touchAll(), finishedScreen("30"));
    const auto solution = solutionFor(rig);
    EXPECT_EQ(rig.sent(),
              (Writes{rig.message.mode(2), rig.message.capture(false), rig.message.saved(solution)}));
    EXPECT_FALSE(rig.cursor.isHidden);
    EXPECT_EQ(rig.entry->text("CalibrateStatus"), "YES");
    EXPECT_EQ(imageOf(rig.stored()), imageOf(rig.context)) << "the entry changes on OK only";
    EXPECT_EQ(rig.paint(), finishedScreen("30"));
    EXPECT_EQ(rig.sent(), (Writes{rig.message.mode(2), rig.message.capture(false)}));
    rig.view->mouseUp(kNoButton);
    EXPECT_EQ(rig.settle(), finishedScreen("30"));
  }
}

TEST(Calibration, CountsDownAndCancelsOnTheTickAfterTheLastSecond) {
  Rig rig(4);
  rig.start();
  for (int seconds = 30; seconds >= 1; --seconds) {
    rig.runLoop.advance(std::chrono::seconds(1));
    EXPECT_EQ(rig.settle(), targetScreen({96, 1026}, std::to_string(seconds)));
  }
  EXPECT_EQ(rig.sent(), Writes{});
  rig.wait(1);
  expectClosed(rig, {rig.message.cancelled(true, rig.context.CalibParams)});
}

TEST(Calibration, CountsFromTwentyNineAfterEveryTouchAndWhileTheButtonsAreShown) {
  for (const std::int32_t touched : {1, 4}) {
    SCOPED_TRACE(touched);
    Rig rig(4);
    rig.start();
    rig.wait(20);
    for (std::int32_t i = 0; i < touched; ++i) rig.touch(Rig::rawX(i, 4), Rig::rawY(i, 4), i);
    EXPECT_EQ(rig.paint().at(1), countDown("11", {950, 390}).at(0)) << "the number changes with the tick";
    rig.runLoop.advance(std::chrono::seconds(1));
    EXPECT_EQ(rig.settle().at(1), countDown("29", {950, 390}).at(0));
    rig.wait(28);
    EXPECT_EQ(rig.paint().at(1), countDown("1", {950, 390}).at(0));
    EXPECT_FALSE(rig.isClosed());
    rig.sent();
    rig.wait(1);
    expectClosed(rig, {rig.message.cancelled(true, rig.context.CalibParams)});
    EXPECT_EQ(rig.files.writeAttempts, 0);
    EXPECT_TRUE(rig.device.calls.empty());
  }
}

TEST(Calibration, OkAndReturnWriteTheResultToWhereTheProductKeepsIt) {
  struct Case {
    std::int32_t productId;
    DeviceKind written;
  };
  const Case cases[] = {{0x0001, DeviceKind::ConfigurationOnly}, {0x0080, DeviceKind::Infrared},
                        {0x0085, DeviceKind::Infrared},          {0x0086, DeviceKind::Infrared},
                        {0x0087, DeviceKind::Infrared},          {0x0C20, DeviceKind::Optical},
                        {0x0081, DeviceKind::Unknown},           {0, DeviceKind::Unknown}};
  for (const auto& each : cases)
    for (const bool byKey : {false, true}) {
      SCOPED_TRACE(each.productId);
      Rig rig(4, {0, 0, 1920, 1080}, each.productId);
      rig.start();
      rig.touchAll();
      auto expected = rig.context;
      expected.CalibParams = solutionFor(rig);
      expected.DeviceConfig.CalibrateStatus = 1;
      rig.sent();
      if (byKey) {
        rig.key(kKeyReturn);
        expectClosed(rig, {});
      } else {
        rig.click(kOk);
        expectClosed(rig, {rig.message.mode(2), rig.message.capture(false),  // the held button
                           rig.message.mode(2), rig.message.capture(false)});
      }
      EXPECT_EQ(rig.controller.reloads, 1);
      EXPECT_EQ(imageOf(rig.stored()), imageOf(expected));
      EXPECT_EQ(rig.entry->text("CalibrateStatus"), "YES");
      EXPECT_EQ(rig.files.writeAttempts, each.written == DeviceKind::ConfigurationOnly ? 1 : 0);
      if (each.written == DeviceKind::ConfigurationOnly) {
        EXPECT_EQ(rig.files.files.at("device.plist"),
                  (Dictionary{{"CalibrateStatus", true}, {"CalibParams", bytesOf(expected.CalibParams)}}));
      }
      const bool toDevice = each.written == DeviceKind::Infrared || each.written == DeviceKind::Optical;
      EXPECT_EQ(rig.device.calls.empty(), !toDevice);
      if (toDevice) {
        EXPECT_EQ(imageOf(rig.touchscreen.stored().calibParams), imageOf(expected.CalibParams));
        EXPECT_EQ(imageOf(rig.touchscreen.stored().deviceConfig), imageOf(expected.DeviceConfig));
      }
    }
}

TEST(Calibration, CancelAndEscapeRestoreTheBackupAtAnyTime) {
  enum class Way { Escape, Button };
  struct Case {
    const char* name;
    std::int32_t touched;
    Way way;
    std::uint8_t statusBefore;
  };
  const Case cases[] = {{"before any touch", 0, Way::Escape, 1},
                        {"while collecting", 3, Way::Escape, 0},
                        {"finished, by key", 4, Way::Escape, 0},
                        {"finished, by key, calibrated before", 4, Way::Escape, 7},
                        {"finished, by button", 4, Way::Button, 0}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.name);
    Rig rig(4);
    rig.context.DeviceConfig.CalibrateStatus = each.statusBefore;
    storeContext(*rig.entry, rig.context);
    rig.start();
    for (std::int32_t i = 0; i < each.touched; ++i) rig.touch(Rig::rawX(i, 4), Rig::rawY(i, 4), i);
    Writes expected;
    if (each.way == Way::Button) {
      rig.view->mouseDown(kCancel);
      rig.settle();
      expected = {rig.message.mode(2), rig.message.capture(false)};
    }
    rig.sent();
    if (each.way == Way::Button) {
      rig.view->mouseUp(kCancel);
      rig.settle();
    } else {
      rig.key(kKeyEscape);
    }
    expected.push_back(rig.message.cancelled(each.statusBefore != 0, rig.context.CalibParams));
    expectClosed(rig, expected);
    EXPECT_EQ(rig.entry->text("CalibrateStatus"), each.statusBefore != 0 ? "YES" : "NO");
    EXPECT_EQ(imageOf(rig.stored()), imageOf(rig.context));
    EXPECT_TRUE(rig.device.calls.empty());
    EXPECT_EQ(rig.controller.reloads, 0);
  }
}

TEST(Calibration, ReturnBeforeTheGridIsFinishedAndOtherKeysDoNothing) {
  Rig rig(25);
  rig.start();
  for (const std::uint16_t key : {kKeyReturn, std::uint16_t{0}, std::uint16_t{49}, std::uint16_t{65535}})
    rig.key(key);
  rig.view->mouseDown(kOk);
  rig.view->mouseDragged(kOk);
  EXPECT_EQ(rig.sent(), Writes{});
  EXPECT_EQ(rig.record->redrawRequests, 0);
  EXPECT_EQ(rig.paint(), targetScreen({96, 1026}, "30"));
}

TEST(Calibration, ReCalibrateCollectsAgainWithTheTrialStillInTheDriver) {
  Rig rig(25);
  rig.start();
  rig.touchAll();
  rig.view->mouseDown(kReCalibrate);
  rig.settle();
  rig.sent();
  rig.view->mouseUp(kReCalibrate);
  EXPECT_EQ(rig.settle(), targetScreen({96, 1026}, "30"));
  EXPECT_EQ(rig.sent(), (Writes{rig.message.mode(2), rig.message.capture(false), rig.message.capture(true)}));
  EXPECT_TRUE(rig.cursor.isHidden);
  EXPECT_EQ(rig.entry->text("CalibrateStatus"), "YES");
  rig.wait(1);
  EXPECT_EQ(rig.paint().at(1), countDown("29", {950, 390}).at(0));
  EXPECT_EQ(rig.touchAll(), finishedScreen("29"));
  EXPECT_EQ(rig.sent().back(), rig.message.saved(solutionFor(rig))) << "the second grid is tried as well";
  rig.key(kKeyEscape);
  EXPECT_EQ(rig.sent().at(0), rig.message.cancelled(true, rig.context.CalibParams)) << "the first backup";
}

TEST(Calibration, DrawsTheButtonThatIsHeldAndPerformsTheOneUnderTheRelease) {
  struct Case {
    const char* name;
    Point press;
    int held;
    Point release;
    enum class Outcome { Nothing, Cancelled, Collecting } outcome;
  };
  using Outcome = Case::Outcome;
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
    const auto drawn = rig.settle();
    EXPECT_EQ(rig.isClosed(), each.outcome == Outcome::Cancelled);
    if (each.outcome == Outcome::Cancelled) continue;
    EXPECT_EQ(drawn,
              each.outcome == Outcome::Nothing ? finishedScreen("30") : targetScreen({96, 1026}, "30"));
  }
}

TEST(Calibration, PerformsNothingWhileAButtonIsHeldAgain) {
  Rig rig(4);
  rig.start();
  rig.touchAll();
  rig.view->mouseUp(kOk);
  rig.view->mouseDown(kCancel);
  EXPECT_EQ(rig.settle(), finishedScreen("30", 3));
  EXPECT_FALSE(rig.isClosed());
}

TEST(Calibration, ClosesWithoutAWordWhenTheDriverInstanceIsGone) {
  for (const std::int32_t touched : {0, 2, 4}) {
    SCOPED_TRACE(touched);
    Rig rig(4);
    rig.start();
    for (std::int32_t i = 0; i < touched; ++i) rig.touch(Rig::rawX(i, 4), Rig::rawY(i, 4), i);
    const auto statusBefore = rig.entry->text("CalibrateStatus");
    rig.view->mouseDown(kOk);
    rig.sent();
    rig.registry.remove(rig.handle);
    rig.view->mouseUp(kOk);
    EXPECT_EQ(rig.paint(), Operations{});
    EXPECT_TRUE(rig.isClosed());
    EXPECT_EQ(rig.sent(), Writes{});
    EXPECT_EQ(rig.runLoop.timerCount(), 0U);
    EXPECT_FALSE(rig.cursor.isHidden);
    EXPECT_EQ(rig.presentation.calls.size(), 1U);
    EXPECT_EQ(rig.entry->text("CalibrateStatus"), statusBefore);
    EXPECT_TRUE(rig.device.calls.empty());
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
  EXPECT_EQ(rig.touchscreen.stored().deviceConfig.CalibrateStatus, 1);
  rig.view.reset();
  EXPECT_TRUE(entry.expired());
}

TEST(Calibration, OffersOkAfterTouchesWithoutASolution) {
  Rig rig(4);
  rig.start();
  Operations drawn;
  for (std::int32_t i = 0; i < 4; ++i) drawn = rig.touch(5000, 5000, i);
  EXPECT_EQ(drawn, finishedScreen("30"));
  EXPECT_EQ(rig.sent(), (Writes{rig.message.mode(2), rig.message.capture(false)}));
  EXPECT_EQ(rig.entry->text("CalibrateStatus"), "NO");
  rig.key(kKeyReturn);
  auto expected = rig.context;
  expected.DeviceConfig.CalibrateStatus = 1;
  EXPECT_EQ(imageOf(rig.stored()), imageOf(expected));
  EXPECT_EQ(imageOf(rig.touchscreen.stored().calibParams), imageOf(expected.CalibParams));
}

TEST(Calibration, ShowsNoTargetInAModeWithoutAGrid) {
  for (const std::int32_t mode : {0, 5, 24, 26, -1, std::numeric_limits<std::int32_t>::min()}) {
    SCOPED_TRACE(mode);
    Rig rig(mode);
    rig.start();
    auto empty = background({1920, 1080});
    empty += countDown("30", {950, 390});
    EXPECT_EQ(rig.paint(), empty);
    EXPECT_EQ(rig.touch(1000, 2000, 0, kOk), empty);
    rig.click(kCancel);
    rig.key(kKeyReturn);
    EXPECT_EQ(rig.sent(), Writes{});
    EXPECT_FALSE(rig.isClosed());
    rig.wait(31);
    expectClosed(rig, {rig.message.cancelled(true, rig.context.CalibParams)});
  }
}

TEST(Calibration, GoesOnWithEntriesThatLackOrMistypeTheirKeys) {
  struct Case {
    const char* name;
    std::vector<const char*> missing;
    Dictionary replaced;
  };
  const Case cases[] = {
      {"no context", {"DeviceContext"}, {}},
      {"context too short", {}, {{"DeviceContext", Bytes(10, 7)}}},
      {"context too long", {}, {{"DeviceContext", Bytes(4000, 7)}}},
      {"context of another type", {}, {{"DeviceContext", "293"}}},
      {"no touch mode", {"TouchMode"}, {}},
      {"texts for numbers", {}, {{"ProductID", "128"}, {"DeviceInterface", "x"}, {"CalibrateStatus", 1}}},
      {"interface that is no more", {}, {{"DeviceInterface", 99}}},
      {"nearly nothing",
       {"TouchMode", "DeviceInterface", "ProductID", "DeviceContext", "CalibrateStatus"},
       {}},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.name);
    Rig rig(25);
    for (const auto* key : each.missing) rig.entry->remove(key);
    for (const auto& [key, value] : each.replaced) rig.entry->set(key, value);
    rig.start();
    EXPECT_EQ(rig.touchAll(), finishedScreen("30"));
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
  for (const auto& [before, touched, after] :
       {std::tuple(4, 3, 25), std::tuple(25, 10, 4), std::tuple(25, 25, 4)}) {
    Rig rig(before);
    rig.start();
    for (std::int32_t i = 0; i < touched; ++i) rig.touch(1000 + i * i, 2000 - i, i);
    rig.entry->set("CalibrateMode", after);
    for (std::int32_t i = touched; i < 40; ++i) rig.touch(1000 + i, 2000 + i, i);
    rig.wait(31);
    EXPECT_TRUE(rig.isClosed());
  }
}

TEST(Calibration, DoesNothingAnyMoreOnceItIsClosed) {
  for (const bool lost : {false, true}) {
    Rig rig(4);
    rig.start();
    rig.touchAll();
    if (lost)
      rig.registry.remove(rig.handle);
    else
      rig.key(kKeyEscape);
    rig.paint();
    ASSERT_TRUE(rig.isClosed());
    rig.registry.objects[rig.handle] = {class_name::kTouchDriver, 0, Dictionary()};
    rig.sent();
    const auto contextBefore = *rig.entry;
    rig.view->mouseDown(kOk);
    rig.view->mouseDragged(kOk);
    rig.view->mouseUp(kOk);
    rig.view->keyDown(kKeyReturn);
    rig.view->keyDown(kKeyEscape);
    rig.runLoop.advance(std::chrono::seconds(100));
    EXPECT_EQ(rig.paint(), Operations{});
    EXPECT_EQ(rig.registry.writes, Writes{});
    EXPECT_EQ(*rig.entry, contextBefore);
    EXPECT_EQ(rig.record->redrawRequests, 0);
    EXPECT_EQ(rig.presentation.calls.size(), 1U);
    EXPECT_TRUE(rig.device.calls.empty());
  }
}

TEST(Calibration, LeavesNoTimerBehindWhenItIsDestroyedInTheMiddleOfARun) {
  Rig rig(4);
  rig.start();
  rig.view.reset();
  EXPECT_EQ(rig.runLoop.timerCount(), 0U);
}

}  // namespace
}  // namespace touchpanel::testing

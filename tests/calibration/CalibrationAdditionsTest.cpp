#include <cmath>

#include <gmock/gmock.h>

#include "CalibrationRig.h"
#include "DrawnScreens.h"
#include "calibration/AdditionStyle.h"
#include "calibration/Calibration.h"
#include "calibration/RegionCalibration.h"

namespace touchpanel::testing {
namespace {

using Rig = CalibrationRig<Calibration>;

const SurfaceScale kFiftyFiveInches{1, {{1210 / 1920.0, 680 / 1080.0}}};
constexpr Point kOk{960, 540};

Point middleOf(const Rect& rect) { return {rect.x + rect.width / 2, rect.y + rect.height / 2}; }
Operations ringsOf(Operations drawn) {
  std::erase_if(drawn, [](const Drawn& each) { return each.what != "ring"; });
  return drawn;
}
bool hasText(const Operations& drawn, const std::string& text) {
  return std::ranges::any_of(
      drawn, [&](const Drawn& each) { return each.what.find(": " + text) != std::string::npos; });
}
Operations from(const Operations& drawn, std::size_t first) {
  return {drawn.begin() + static_cast<std::ptrdiff_t>(std::min(first, drawn.size())), drawn.end()};
}

template <typename View>
struct Pair {
  Pair(std::int32_t mode, Size screen, const SurfaceScale& scale)
      : plain(mode, {}, screen), full(mode, scale, screen), size(screen) {
    plain.start();
    full.start();
  }
  void both(const std::function<void(CalibrationRig<View>&)>& act) {
    act(plain);
    act(full);
  }
  /// The drawing without additions comes first and is unchanged; the rest meets nothing of it and stays on the box.
  Operations expectAdditionsBeside() {
    RecordingCanvas before, canvas;
    plain.view->drawRect(before);
    full.view->drawRect(canvas);
    const auto laidDown = before.operations.size();
    EXPECT_EQ(before.operations,
              Operations(canvas.operations.begin(),
                         canvas.operations.begin() + static_cast<std::ptrdiff_t>(laidDown)));
    // The first operation is the background.
    for (std::size_t i = laidDown; i < canvas.operations.size(); ++i) {
      for (std::size_t k = 1; k < laidDown; ++k)
        EXPECT_FALSE(meet(canvas.operations[i], canvas.extents[i], before.extents[k]))
            << ::testing::PrintToString(canvas.operations[i]) << " over "
            << ::testing::PrintToString(before.operations[k]);
      EXPECT_TRUE(canvas.operations[i].what == "line" || isInside(canvas.extents[i], before.extents[0]))
          << ::testing::PrintToString(canvas.operations[i]);
    }
    EXPECT_EQ(plain.sent(), full.sent());
    return from(canvas.operations, laidDown);
  }
  static bool meet(const Drawn& drawn, const Rect& a, const Rect& b) {
    if (drawn.what != "line")
      return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
    for (float part = 0; part <= 1; part += 1 / 64.0F) {
      const Point at{a.x + part * a.width, a.y + part * a.height};
      if (at.x > b.x && at.x < b.x + b.width && at.y > b.y && at.y < b.y + b.height) return true;
    }
    return false;
  }
  bool isInside(const Rect& inner, const Rect& box) const {
    return inner.x >= 0 && inner.y >= 0 && inner.x + inner.width <= std::min(box.width, size.width) &&
           inner.y + inner.height <= std::min(box.height, size.height);
  }

  CalibrationRig<View> plain;
  CalibrationRig<View> full;
  Size size;
};

TEST(CalibrationAdditions, StandBesideTheDrawingOnEveryScreenAndChangeNothingOfIt) {
  const Size sizes[] = {{1920, 1080}, {1280, 1024}, {3840, 2160}, {1080, 1920},
                        {1024, 768},  {640, 480},   {320, 240}};
  const SurfaceScale scales[] = {{}, kFiftyFiveInches, {2, {{0.1, 0.1}}}, {1, {{2, 2}}}};
  for (const auto& size : sizes)
    for (const auto& scale : scales)
      for (const std::int32_t mode : {4, 25}) {
        SCOPED_TRACE(::testing::Message()
                     << size.width << " x " << size.height << ", " << mode << " targets, "
                     << (scale.millimetres ? scale.millimetres->perPointX : 0));
        Pair<Calibration> pair(mode, size, scale);
        const std::int32_t columns = mode == 4 ? 2 : 5;
        const bool isRoomy = size.width >= 1024 && size.height >= 768;
        for (std::int32_t i = 0; i < mode; ++i) {
          const auto added = pair.expectAdditionsBeside();
          EXPECT_TRUE(!isRoomy || (hasText(added, "Target %1 of %2; " + std::to_string(i + 1) + "; ") &&
                                   hasText(added, "Ends by itself in %1 s; ")));
          pair.both([&](auto& rig) { rig.touch(3000 + i % columns * 6000, 3000 + i / columns * 6000, i); });
        }
        EXPECT_TRUE(hasText(pair.expectAdditionsBeside(), "Error of the touches") || !isRoomy);
        pair.both([&](auto& rig) { rig.view->mouseMoved({size.width / 2, size.height / 2}); });
        pair.expectAdditionsBeside();
        Pair<Calibration> wrong(mode, size, scale);
        wrong.both([&](auto& rig) { rig.touchExactly(mode == 4 ? std::set{3} : std::set{4, 12, 17}); });
        EXPECT_TRUE(!isRoomy || ringsOf(wrong.expectAdditionsBeside()).size() == (mode == 4 ? 0U : 3U));
      }
}

TEST(CalibrationAdditions, StayInTheBoxOfARegion) {
  for (const Size& box : {Size{1800, 1000}, {800, 400}, {400, 300}, {150, 90}, {5, 5}, {0, 0}, {-300, 200}})
    for (const std::int32_t mode : {4, 25}) {
      SCOPED_TRACE(::testing::Message() << box.width << " x " << box.height);
      Pair<RegionCalibration> pair(mode, kScreen, kFiftyFiveInches);
      pair.expectAdditionsBeside();
      pair.both([&](auto& rig) {
        rig.press({50, 1050});
        rig.drag({50 + box.width, 1050 - box.height});
        rig.release({50 + box.width, 1050 - box.height});
      });
      pair.expectAdditionsBeside();
      pair.both([](auto& rig) { rig.touchExactly({1}); });
      pair.expectAdditionsBeside();
    }
}

TEST(CalibrationAdditions, SayHowARegionIsDragged) {
  CalibrationRig<RegionCalibration> rig(25, kFiftyFiveInches);
  rig.start();
  EXPECT_TRUE(hasText(rig.paint(), "Drag a rectangle from its upper left to its lower right corner."));
  rig.press({100, 1000});
  const auto added = rig.drag({1800, 600});
  EXPECT_TRUE(hasText(added, "Drag a rectangle")) << "elsewhere now";
}

TEST(CalibrationAdditions, AreDarkOnTheBackgroundAndLargeEnoughToBeReadFromThreeMetres) {
  const auto luminance = [](const Color& color) {
    const auto linear = [](float part) {
      return part <= 0.04045F ? part / 12.92 : std::pow((static_cast<double>(part) + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
  };
  Rig rig(25, kFiftyFiveInches);
  rig.start();
  const auto drawn = rig.touchExactly({4});
  const auto added = from(drawn, finishedScreen().size());
  for (const auto& [what, place, color] : added)
    EXPECT_TRUE(what == "oval" || (luminance(kBlue) + 0.05) / (luminance(color) + 0.05) >= 4.5) << what;
  // Capital letters of 16 minutes of arc at 3 m are 14 mm high, and 0.716 of the font.
  EXPECT_GE(AdditionStyle::of(kScreen, kFiftyFiveInches).textSize * 680 / 1080 * 0.716F, 14);
  EXPECT_GE(AdditionStyle::of({1280, 800}, {1, {{0.1, 0.1}}}).textSize * 0.1F, 4) << "held in the hand";
}

TEST(CalibrationAdditions, SayWhatTheTouchesAreWorth) {
  const auto one = [](std::int32_t) { return std::pair(5000, 5000); };
  const auto bent = [](std::int32_t k) {
    return std::pair(20000 - std::abs(k % 5 * 6000 - 9000), 2000 + k / 5 * 6000);
  };
  const auto straight = [](std::int32_t k) { return std::pair(2000 + k % 2 * 28000, 2000 + k / 2 * 28000); };
  const auto bounced = [](std::int32_t k) {
    return std::pair(2000 + k % 2 * 28000, k == 3 ? 2000 : 2000 + k / 2 * 28000);
  };
  using Raw = std::function<std::pair<std::int32_t, std::int32_t>(std::int32_t)>;
  for (const auto& [mode, raw, says] : std::initializer_list<std::tuple<std::int32_t, Raw, const char*>>{
           {4, one, "These touches give no calibration"},
           {25, bent, "This calibration folds the screen"},
           {4, straight, "The touches fit each other."},
           {4, bounced, "These touches do not fit together."}}) {
    Rig rig(mode, kFiftyFiveInches);
    rig.start();
    for (std::int32_t k = 0; k < mode; ++k) rig.touch(raw(k).first, raw(k).second, k);
    EXPECT_TRUE(hasText(rig.paint(), says)) << says;
  }
}

TEST(CalibrationAdditions, LetJustTheRingedTargetBeTakenAgain) {
  for (const std::int32_t wrong : {4, 12, 24}) {
    SCOPED_TRACE(wrong);
    Rig rig(25, kFiftyFiveInches);
    rig.start();
    const auto rings = ringsOf(rig.touchExactly({wrong}));
    ASSERT_EQ(rings.size(), 1U);
    const auto k = static_cast<std::size_t>(wrong);
    const auto ring = middleOf(rings[0].place);
    const auto target = gridTarget(1 + wrong / 5, wrong % 5, kScreen);
    EXPECT_EQ(std::hypot(ring.x - target.x, ring.y - target.y) < 1, wrong != 12)
        << "the middle one lies below OK";
    EXPECT_FALSE(rig.view->run().fit()->report().all[k].fits);

    rig.press(ring);
    rig.release({ring.x + 300, ring.y});
    EXPECT_TRUE(rig.view->run().isFinished()) << "released elsewhere";
    // Where a finger on the ring puts the pointer, as long as the wrong touch bends the calibration.
    const auto landing = viewPoint(rig.view->run().fit()->landingOf(driverUnits(ring, kScreen)), kScreen);
    rig.press(landing);
    rig.sent();
    const auto again = rig.release(landing);
    EXPECT_EQ(rig.sent(), kCaptureOn + "pointId=" + std::to_string(wrong) + ' ');
    EXPECT_EQ(Operations(again.begin(), again.begin() + 8), targetScreen(target));
    EXPECT_TRUE(hasText(again, "Once more: target %1 of %2; " + std::to_string(wrong + 1) + "; 25"));
    EXPECT_TRUE(rig.cursor.isHidden);

    const auto done = rig.touch(static_cast<std::int32_t>(rig.touches().fDspX[k]),
                                static_cast<std::int32_t>(rig.touches().fDspY[k]), wrong, target);
    EXPECT_FALSE(rig.isClosed()) << "the middle target's touch is no press of OK";
    EXPECT_EQ(rig.sent(), kFinished + kTried);
    EXPECT_TRUE(ringsOf(done).empty());
    EXPECT_LT(rig.view->run().fit()->report().millimetres->largest, 0.5);
    rig.press(kOk);
    rig.release(kOk);
    EXPECT_TRUE(rig.isClosed());
  }
}

TEST(CalibrationAdditions, FrameTheButtonUnderTheFingerAndMarkAnAcceptedTouchForTwoSeconds) {
  Rig rig(4, kFiftyFiveInches);
  rig.start();
  const auto lines = [](const Operations& drawn) {
    return std::ranges::count_if(drawn, [](const Drawn& each) { return each.what == "line"; });
  };
  EXPECT_EQ(lines(rig.paint()), 0);
  const auto accepted = rig.touchTargets(1);
  EXPECT_EQ(lines(accepted), 2);
  EXPECT_TRUE(hasText(accepted, "Ends by itself in %1 s; 29"));
  EXPECT_EQ(lines(rig.wait(1)), 2);
  const auto later = rig.wait(2);
  EXPECT_EQ(lines(later), 0);
  EXPECT_TRUE(hasText(later, "Ends by itself in %1 s; 27"));
  rig.touchExactly();
  rig.view->mouseMoved({1, 1});
  EXPECT_EQ(rig.record->redrawRequests, 0);
  const auto before = rig.paint();
  rig.view->mouseMoved(kOk);
  const auto framed = rig.settle();
  EXPECT_EQ(framed.size(), before.size() + 3) << "the note is in the way of the fourth side";
  rig.view->mouseMoved({1, 1});
  EXPECT_EQ(rig.settle(), before);
}

TEST(Calibration, HearsATouchscreenWhoseTouchIsOffAndSwitchesItOffAgain) {
  for (const bool off : {true, false}) {
    Rig rig(4);
    rig.registry.objects.at(rig.handle).properties =
        Dictionary{{"configration", Dictionary{{"enableTouch", !off}}}};
    rig.view->setCalibrateDict(rig.entry, rig.controller);
    EXPECT_EQ(rig.sent(), kCaptureOn + (off ? "enableTouch=1 " : ""));
    rig.paint();
    rig.touchAll();
    rig.sent();
    rig.key(kKeyReturn);
    rig.expectClosed(kExit + (off ? "enableTouch=0 " : ""));
  }
}

}  // namespace
}  // namespace touchpanel::testing

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

#include <gtest/gtest.h>

#include "app/TryOut.h"

namespace touchpanel {
namespace {

void tap(TryOut& tryOut, Point location) {
  tryOut.press(location);
  tryOut.release(location);
}

/// A tap at this distance from the marked point.
void tapOff(TryOut& tryOut, float dx, float dy) {
  const auto marked = tryOut.markedPoint().value();
  tap(tryOut, {marked.x + dx, marked.y + dy});
}

TEST(TryOut, MarksEveryTestPointOnceBeforeItStartsOverAndTheWholeSurfaceInTheFirstHandful) {
  TryOut tryOut;
  tryOut.setSurface({1000, 600}, {});
  std::set<std::pair<float, float>> marked, quarters;
  for (std::size_t i = 0; i < tryOut.testPoints().size(); ++i) {
    const auto point = tryOut.markedPoint().value();
    EXPECT_TRUE(marked.insert({point.x, point.y}).second) << i;
    EXPECT_TRUE(point.x >= 100 && point.x <= 900 && point.y >= 100 && point.y <= 500);
    if (i > 0 && i < TryOut::kTapsForResult) quarters.insert({point.x < 500 ? 0 : 1, point.y < 300 ? 0 : 1});
    tapOff(tryOut, 0, 0);
  }
  EXPECT_EQ(marked.size(), 15U);
  EXPECT_EQ(quarters.size(), 4U);
  EXPECT_EQ(tryOut.markedPoint(), tryOut.testPoints().front());
}

TEST(TryOut, TellsMeanAndLargestErrorAfterAHandfulOfTaps) {
  TryOut tryOut;
  tryOut.setSurface({1000, 600}, {.pixelsPerPoint = 2, .millimetres = {{0.5, 0.25}}});
  tapOff(tryOut, 3, 4);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(tryOut.tapsUntilResult(), 4U - static_cast<std::size_t>(i));
    EXPECT_FALSE(tryOut.result());
    tapOff(tryOut, 0, 0);
  }
  tapOff(tryOut, -200, 0);  // far nearer to another test point than to the one that was meant
  const auto result = tryOut.result().value();
  EXPECT_EQ(result.taps, 5U);
  EXPECT_DOUBLE_EQ(result.pixels.mean, (10 + 400) / 5.0);
  EXPECT_DOUBLE_EQ(result.pixels.largest, 400);
  ASSERT_TRUE(result.millimetres);
  EXPECT_NEAR(result.millimetres->mean, (std::hypot(1.5, 1) + 100) / 5, 1e-9);
  EXPECT_DOUBLE_EQ(result.millimetres->largest, 100);
  EXPECT_EQ(tryOut.tapsUntilResult(), 0U);
  tryOut.clear();
  EXPECT_FALSE(tryOut.result());
  EXPECT_EQ(tryOut.markedPoint(), tryOut.testPoints().front());
}

TEST(TryOut, TellsNoMillimetresWhenTheScreensSizeIsUnknown) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const std::optional<SurfaceScale::Millimetres> unknown[] = {
      std::nullopt, {{0, 0}}, {{0.3, 0}}, {{-1, 1}}, {{nan, 1}}};
  for (const auto& millimetres : unknown) {
    TryOut tryOut;
    tryOut.setSurface({1000, 600}, {.millimetres = millimetres});
    for (int i = 0; i < 5; ++i) tapOff(tryOut, 0, 0.5F);
    EXPECT_FALSE(tryOut.result()->millimetres);
    EXPECT_EQ(tryOut.result()->pixels, (TouchErrors{.mean = 0.5, .largest = 0.5}));
  }
}

TEST(TryOut, ReachesIntoTheCornersOfAWholeScreen) {
  TryOut tryOut(TryOut::Layout::ToTheEdges);
  tryOut.setSurface({1001, 601}, {});
  for (const Point corner : {Point{0, 0}, Point{1000, 0}, Point{0, 600}, Point{1000, 600}, Point{500, 300}})
    EXPECT_EQ(std::ranges::count(tryOut.testPoints(), corner), 1);
  EXPECT_EQ(tryOut.testPoints().size(), 15U);
}

TEST(TryOut, CountsTouchesThatDriftOrRestAndNoStrokes) {
  TryOut tryOut;
  tryOut.setSurface({1000, 600}, {});
  const auto marked = tryOut.markedPoint().value();
  const Point away{marked.x + 73, marked.y};

  tryOut.press(marked);  // a stroke that comes back
  tryOut.move(away);
  tryOut.release(marked);
  EXPECT_EQ(tryOut.trail(), (std::vector<Point>{marked, away, marked}));
  tryOut.press(marked);  // a page that is left
  tryOut.cancel();
  tryOut.release(marked);
  tryOut.move(away);  // no touch at all
  tryOut.release(away);
  EXPECT_TRUE(tryOut.taps().empty());
  EXPECT_TRUE(tryOut.trail().empty());

  const Point near{marked.x - 5, marked.y + 5};
  tryOut.press(away);  // a press that is never released counts for nothing
  tryOut.press(marked);
  tryOut.move({marked.x + 6, marked.y});
  tryOut.release(near);
  const Point drifted{marked.x + 13, marked.y};
  const auto next = tryOut.markedPoint().value();
  tryOut.press(marked, true);
  tryOut.release(drifted);
  EXPECT_EQ(tryOut.taps(), (std::vector<LandedTouch>{{marked, near}, {next, drifted}}));
  EXPECT_EQ(tryOut.manners(), (std::vector<TryOutManner>{{}, {true, {marked, drifted}}}));
}

TEST(TryOut, KeepsTheLaterPartOfADrawingWithoutEnd) {
  TryOut tryOut;
  tryOut.setSurface({1000, 600}, {});
  tryOut.press({0, 0});
  for (int i = 1; i <= 5000; ++i) tryOut.move({static_cast<float>(i), 0});
  EXPECT_EQ(tryOut.trail().size(), TryOut::kTrailLength);
  EXPECT_EQ(tryOut.trail().back(), (Point{5000, 0}));
  tryOut.release({0, 0});
  EXPECT_TRUE(tryOut.taps().empty());
}

TEST(TryOut, StartsOverOnAnotherSurfaceOnly) {
  TryOut tryOut;
  tap(tryOut, {1, 1});
  EXPECT_TRUE(tryOut.taps().empty()) << "no surface, no test points";
  EXPECT_FALSE(tryOut.markedPoint());
  const SurfaceScale scale{.pixelsPerPoint = 1.5, .millimetres = {}};
  tryOut.setSurface({1000, 600}, scale);
  tapOff(tryOut, 1, 1);
  tryOut.setSurface({1000, 600}, scale);
  EXPECT_EQ(tryOut.taps().size(), 1U);
  tryOut.setSurface({1000, 600}, {});
  EXPECT_TRUE(tryOut.taps().empty());
  tapOff(tryOut, 1, 1);
  tryOut.setSurface({1, 1}, {});
  EXPECT_TRUE(tryOut.taps().empty());
  EXPECT_EQ(tryOut.markedPoint(), (Point{0.5F, 0.5F}));
  tryOut.setSurface({0, 600}, {});
  EXPECT_FALSE(tryOut.markedPoint());
  tap(tryOut, {1, 1});
  EXPECT_TRUE(tryOut.taps().empty());
}

}  // namespace
}  // namespace touchpanel

// How far a calibration can be trusted: wrong touches are found, and only those.
#include <set>

#include <gtest/gtest.h>

#include "demo/measure/CalibrationTrial.h"

namespace touchpanel::demo {
namespace {

CalibrationTrial trialOf(std::int32_t mode, double noise, std::uint32_t seed) {
  return {kFiftyFiveInches, wornFrame(noise), mode, seed};
}

std::set<std::size_t> wrongOf(const CalibrationTrial& trial) {
  const auto report = trial.examine().report();
  std::set<std::size_t> wrong;
  for (std::size_t k = 0; k < report.count; ++k)
    if (!report.all[k].fits) wrong.insert(k);
  return wrong;
}

TEST(CalibrationTrial, FindsBouncedTouchesAndIsMendedByTakingThemAgain) {
  for (const auto& bounced :
       std::vector<std::set<std::size_t>>{{4}, {5}, {12}, {14}, {24}, {4, 24}, {3, 4}, {1, 8, 12, 20}}) {
    auto trial = trialOf(kTwentyFiveTargets, 6, 1);
    for (const auto target : bounced) trial.bounce(target);
    EXPECT_EQ(wrongOf(trial), bounced);
    EXPECT_GT(trial.errorInMillimetres().mean, 10);
    for (const auto target : bounced) trial.touchAgain(target);
    EXPECT_EQ(wrongOf(trial), std::set<std::size_t>{});
    EXPECT_LT(trial.errorInMillimetres().mean, 1);
    EXPECT_LT(trial.examine().report().millimetres->largest, 1);
  }
}

TEST(CalibrationTrial, CallsHardlyEverATouchWrongWithoutCause) {
  for (const double noise : {0.0, 6.0, 40.0}) {
    int ringed = 0, disagreeing = 0;
    for (std::uint32_t seed = 0; seed < 100; ++seed) {
      ringed += wrongOf(trialOf(kTwentyFiveTargets, noise, seed)).empty() ? 0 : 1;
      disagreeing += trialOf(kFourTargets, noise, seed).examine().report().disagrees ? 1 : 0;
    }
    EXPECT_LE(ringed, 2) << noise;
    EXPECT_EQ(disagreeing, 0) << noise;
  }
}

TEST(CalibrationTrial, KnowsWhereAFingerOnABouncedTargetLandsMeanwhile) {
  auto trial = trialOf(kTwentyFiveTargets, 0, 1);
  const auto truth = trial.examine();
  trial.bounce(4);
  const auto bent = trial.examine();
  const auto& target = truth.report().all[4].units.meant;
  const auto landing = bent.landingOf(target);
  EXPECT_GT(std::abs(landing.x - target.x), 1000) << "the corner is bent away";
  EXPECT_NEAR(truth.landingOf(target).x, target.x, 30);
  trial.touchAgain(4);
  EXPECT_NEAR(trial.examine().landingOf(target).y, target.y, 30);
}

}  // namespace
}  // namespace touchpanel::demo

// What wrong touches do to a calibration of a 55-inch frame, how surely they are found, and how often a touch is
// called wrong without cause.
#include <cstdio>

#include "demo/measure/CalibrationTrial.h"

namespace touchpanel::demo {
namespace {

constexpr std::uint32_t kRuns = 200;
constexpr double kNoises[] = {0, 2, 6, 15, 40, 100};

void printErrors(const char* when, const CalibrationTrial& trial) {
  const auto error = trial.errorInMillimetres();
  const auto report = trial.examine().report();
  std::printf("  %-34s mean %6.2f mm, largest %7.2f mm; touches: mean %6.2f mm, wrong", when, error.mean,
              error.largest, report.millimetres ? report.millimetres->mean : 0);
  for (std::size_t k = 0; k < report.count; ++k)
    if (!report.all[k].fits) std::printf(" %zu", k + 1);
  std::printf("%s%s%s\n", report.wrongTouches() == 0 ? " none" : "", report.folds ? ", folds" : "",
              report.disagrees ? ", do not fit together" : "");
}

void printOneBounce() {
  constexpr std::size_t kBounced = 14;
  std::printf("25 targets, one bounced touch, 6 raw units of scatter:\n");
  CalibrationTrial trial(kFiftyFiveInches, wornFrame(6), kTwentyFiveTargets, 1);
  printErrors("clean", trial);
  trial.bounce(kBounced);
  printErrors("touch 15 bounced", trial);
  trial.touchAgain(kBounced);
  printErrors("touch 15 taken again", trial);
  std::printf("4 targets, one bounced touch:\n");
  CalibrationTrial four(kFiftyFiveInches, wornFrame(6), kFourTargets, 1);
  printErrors("clean", four);
  four.bounce(3);
  printErrors("touch 4 bounced", four);
}

/// The share of runs, in percent, of which `isRight` holds after `change`.
template <typename Change, typename IsRight>
double shareOfRuns(std::int32_t mode, double noise, Change change, IsRight isRight) {
  std::uint32_t right = 0;
  for (std::uint32_t run = 0; run < kRuns; ++run) {
    CalibrationTrial trial(kFiftyFiveInches, wornFrame(noise), mode, 1000 + run);
    change(trial, run);
    right += isRight(trial.examine().report(), run) ? 1 : 0;
  }
  return 100.0 * right / kRuns;
}

void printShares() {
  std::printf("%u runs for each scatter (standard deviation in raw units; on x in mm):\n", kRuns);
  const auto clean = [](CalibrationTrial&, std::uint32_t) {};
  const auto anyRing = [](const FitReport& report, std::uint32_t) { return report.wrongTouches() > 0; };
  const auto bouncedOf = [](std::uint32_t run) { return std::size_t{1} + run % 24; };
  for (const double noise : kNoises) {
    const double ring = shareOfRuns(kTwentyFiveTargets, noise, clean, anyRing);
    const double found = shareOfRuns(
        kTwentyFiveTargets, noise,
        [&](CalibrationTrial& trial, std::uint32_t run) { trial.bounce(bouncedOf(run)); },
        [&](const FitReport& report, std::uint32_t run) {
          return report.wrongTouches() == 1 && !report.all[bouncedOf(run)].fits;
        });
    const double foundTwo = shareOfRuns(
        kTwentyFiveTargets, noise,
        [&](CalibrationTrial& trial, std::uint32_t run) {
          trial.bounce(bouncedOf(run));
          trial.bounce(bouncedOf(run + 7));
        },
        [&](const FitReport& report, std::uint32_t run) {
          return report.wrongTouches() == 2 && !report.all[bouncedOf(run)].fits &&
                 !report.all[bouncedOf(run + 7)].fits;
        });
    const double four = shareOfRuns(kFourTargets, noise, clean,
                                    [](const FitReport& report, std::uint32_t) { return report.disagrees; });
    std::printf(
        "  %4.0f (%4.2f mm): ring without cause %4.1f %%; the bounced touch alone ringed %5.1f %%; both of "
        "two %5.1f %%; 4 clean touches \"do not fit\" %4.1f %%\n",
        noise, noise * kFiftyFiveInches.widthMm / 32767, ring, found, foundTwo, four);
  }
}

}  // namespace
}  // namespace touchpanel::demo

int main() {
  touchpanel::demo::printOneBounce();
  touchpanel::demo::printShares();
}

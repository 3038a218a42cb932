#pragma once

#include <string>

#include "CalibrationRig.h"

/// What calibration screens are made of, operation by operation, with every number as it must come out.
namespace touchpanel::testing {

inline constexpr Color kBlue{0.082F, 0.691F, 0.914F, 1};
inline constexpr Color kRed{1, 0, 0, 1};
inline constexpr Color kWhite{1, 1, 1, 1};

inline Operations& operator+=(Operations& all, const Operations& more) {
  all.insert(all.end(), more.begin(), more.end());
  return all;
}

inline StyledText yellow(std::string text) { return {std::move(text), "Arial", 12, {1, 1, 0, 1}}; }

inline Operations note(Point origin) {
  return {DrawnText{
      yellow("Note:\n"
             "1. When calibrating, to get better calibration result, the user's head should keep still;\n"
             "2. The calibration coordinates are detemined by the point where the finger leaves the "
             "touchscreen;\n"
             "3. The bull's eye is only for reference, it's not neccessarily the optimal calibration point, "
             "the user should\n"
             "     aim the bull's eye the first calibration, if the result is not satisfying, the user can "
             "recalibrate and\n"
             "     deliberately move slightly apart from the bull's eye.\n"),
      origin}};
}

inline Operations background(Size size) { return {FilledRect{{0, 0, size.width, size.height}, kBlue}}; }

inline Operations countDown(const std::string& seconds, Point origin) {
  return {DrawnText{{seconds, "Arial", 30, {0, 0, 0, 1}}, origin}};
}

inline Operations bullsEye(Point target) {
  const auto [x, y] = target;
  return {FilledOval{{x - 25, y - 25, 50, 50}, kWhite}, FilledOval{{x - 20, y - 20, 40, 40}, kBlue},
          FilledOval{{x - 15, y - 15, 30, 30}, kWhite}, FilledOval{{x - 10, y - 10, 20, 20}, kBlue},
          FilledOval{{x - 5, y - 5, 10, 10}, kRed}};
}

/// The three buttons of a box with its middle at `middle`; `held` is 1, 2, 3 or 0 for none.
inline Operations buttons(Point middle, int held) {
  const auto [x, y] = middle;
  const Color grey{0.35F, 0.35F, 0.35F, 1};
  return {FilledRect{{x - 140, y - 20, 80, 40}, held == 1 ? kRed : grey},
          FilledRect{{x - 40, y - 20, 80, 40}, held == 2 ? kRed : grey},
          FilledRect{{x + 60, y - 20, 80, 40}, held == 3 ? kRed : grey},
          DrawnText{yellow("ReCalibrate"), {x - 133, y - 10}},
          DrawnText{yellow("OK"), {x - 10, y - 10}},
          DrawnText{yellow("Cancel"), {x + 80, y - 10}}};
}

/// A whole screen of 1920 x 1080 with a target.
inline Operations targetScreen(Point target, const std::string& seconds) {
  auto all = background({1920, 1080});
  all += countDown(seconds, {950, 390});
  all += bullsEye(target);
  all += note({710, 540});
  return all;
}

/// A whole screen of 1920 x 1080 with the buttons, drawn released first and then as they are.
inline Operations finishedScreen(const std::string& seconds, int held = 0) {
  auto all = background({1920, 1080});
  all += countDown(seconds, {950, 390});
  for (const int each : {0, held}) {
    all += buttons({960, 540}, each);
    all += note({710, 410});
  }
  return all;
}

}  // namespace touchpanel::testing

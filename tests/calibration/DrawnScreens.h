#pragma once

#include <string>

#include "support/RecordingCanvas.h"

/// What calibration screens are made of, operation by operation, with every number as it must come out.
namespace touchpanel::testing {

inline constexpr Color kBlue{0.082F, 0.691F, 0.914F, 1};
inline constexpr Color kRed{1, 0, 0, 1};
inline constexpr Color kWhite{1, 1, 1, 1};
inline constexpr Size kScreen{1920, 1080};

inline Operations operator+(Operations all, const Operations& more) {
  all.insert(all.end(), more.begin(), more.end());
  return all;
}

inline Drawn yellow(std::string text, float x, float y) {
  return drawnText({std::move(text), "Arial", 12, {1, 1, 0, 1}}, {x, y});
}

inline Drawn note(float x, float y) {
  return yellow(
      "Note:\n"
      "1. When calibrating, to get better calibration result, the user's head should keep "
      "still;\n"
      "2. The calibration coordinates are detemined by the point where the finger leaves the "
      "touchscreen;\n"
      "3. The bull's eye is only for reference, it's not neccessarily the optimal calibration "
      "point, the user should\n"
      "     aim the bull's eye the first calibration, if the result is not satisfying, the user "
      "can recalibrate and\n"
      "     deliberately move slightly apart from the bull's eye.\n",
      x, y);
}

inline Operations backdrop(const std::string& seconds = "30", Size box = kScreen) {
  return {{"rect", {0, 0, box.width, box.height}, kBlue},
          drawnText({seconds, "Arial", 30, {0, 0, 0, 1}}, {box.width / 2 - 10, box.height / 2 - 150})};
}

inline Operations targetScreen(Point target, const std::string& seconds = "30", Size box = kScreen) {
  const auto [x, y] = target;
  return backdrop(seconds, box) +
         Operations{{"oval", {x - 25, y - 25, 50, 50}, kWhite}, {"oval", {x - 20, y - 20, 40, 40}, kBlue},
                    {"oval", {x - 15, y - 15, 30, 30}, kWhite}, {"oval", {x - 10, y - 10, 20, 20}, kBlue},
                    {"oval", {x - 5, y - 5, 10, 10}, kRed},     note(box.width / 2 - 250, box.height / 2)};
}

/// The three buttons in the middle of a box; `held` is 1, 2, 3 or 0 for none.
inline Operations buttons(int held, Size box = kScreen) {
  const float x = box.width / 2, y = box.height / 2;
  const Color grey{0.35F, 0.35F, 0.35F, 1};
  return {{"rect", {x - 140, y - 20, 80, 40}, held == 1 ? kRed : grey},
          {"rect", {x - 40, y - 20, 80, 40}, held == 2 ? kRed : grey},
          {"rect", {x + 60, y - 20, 80, 40}, held == 3 ? kRed : grey},
          yellow("ReCalibrate", x - 133, y - 10),
          yellow("OK", x - 10, y - 10),
          yellow("Cancel", x + 80, y - 10),
          note(x - 250, y - 130)};
}

/// The buttons are drawn released first and then as they are.
inline Operations finishedScreen(const std::string& seconds = "30", int held = 0, Size box = kScreen) {
  return backdrop(seconds, box) + buttons(0, box) + buttons(held, box);
}

}  // namespace touchpanel::testing

// What a user feels, as tables: settings, touches in, pointer out. An area of 1 is 32 units.
#include <gtest/gtest.h>

#include "Glass.h"

namespace touchpanel::testing {
namespace {

struct Felt {
  const char* what;
  Dictionary settings;
  const char* touches;
  const char* pointer;
};

void check(const std::vector<Felt>& table, const Dictionary& always) {
  for (const auto& row : table) {
    SCOPED_TRACE(row.what);
    Glass glass;
    ASSERT_EQ(glass.configure(always), kSuccess);
    ASSERT_EQ(glass.configure(row.settings), kSuccess);
    glass.driver.setDoubleClick(std::chrono::milliseconds(500), 5);
    EXPECT_EQ(glass.play(row.touches), row.pointer);
  }
}

const Dictionary kExact = {
    {"smoothness", 0}, {"enableTouchSensitivity", false}, {"clickRange", 0}, {"enableRightClick", false}};

TEST(TouchFeel, EachModeClicksInItsOwnWay) {
  check(
      {{"click on touch: one click where the finger lands, then the pointer follows",
        {{"mode", 0}},
        "0: 1000,1000; 8: 2000,2000; 16: -",
        "left 1000,1000; up 1000,1000; move 2000,2000"},
       {"click on release: one click where the finger leaves",
        {{"mode", 1}},
        "0: 1000,1000; 8: 2000,2000; 16: -",
        "move 1000,1000; move 2000,2000; left 2000,2000; up 2000,2000"},
       {"drag: the button is held from landing to leaving",
        {{"mode", 2}},
        "0: 1000,1000; 8: 2000,2000; 16: -",
        "left 1000,1000; drag 2000,2000; up 2000,2000"},
       {"a resting finger says nothing new",
        {{"mode", 2}},
        "0: 1000,1000; 8: 1000,1000; 16: 1000,1000; 24: -; 32: -",
        "left 1000,1000; up 1000,1000"},
       {"multi-touch: contacts keep their ids, one leaves, one lands, all leave",
        {{"mode", 3}},
        "0: 3@10,20; 8: 3@11,20 7@900,900; 16: 7@901,900; 24: 7@901,900 0@5,5; 32: -; 40: -",
        "fingers 3@10,20; fingers 3@11,20 7@900,900; fingers 7@901,900; fingers 7@901,900 0@5,5; fingers -"}},
      kExact);
}

TEST(TouchFeel, PressAndHoldMakesExactlyOneRightClick) {
  const Dictionary hold = {
      {"mode", 2},           {"enableRightClick", true}, {"rightClickTime", 1000},
      {"rightClickArea", 5}, {"smoothness", 0},          {"enableTouchSensitivity", false}};
  check({{"still finger, timer",
          {},
          "0: 5000,5000; 1000!; 1500: -",
          "move 5000,5000; right 5000,5000; up 5000,5000"},
         {"still finger, frames only",
          {},
          "0: 5000,5000; 999: 5000,5000; 1001: 5000,5000; 2100: 5000,5000; 2200: -",
          "move 5000,5000; right 5000,5000; up 5000,5000"},
         {"the lift comes late and without a timer",
          {},
          "0: 5000,5000; 1200: -",
          "move 5000,5000; right 5000,5000; up 5000,5000"},
         {"a small movement inside the area does not cancel it",
          {},
          "0: 5000,5000; 500: 5160,4840; 1000!; 1100: -",
          "move 5000,5000; right 5000,5000; up 5000,5000"},
         {"after it the finger may wander",
          {},
          "0: 5000,5000; 1000!; 1100: 9000,9000; 1200: -",
          "move 5000,5000; right 5000,5000; up 5000,5000"},
         {"a timer too early does nothing; a tap is a left click",
          {},
          "0: 5000,5000; 999!; 999: -; 1000!",
          "move 5000,5000; left 5000,5000; up 5000,5000"},
         {"leaving the area drags from where the finger landed",
          {},
          "0: 5000,5000; 500: 5161,5000; 1000!; 1100: -",
          "move 5000,5000; left 5000,5000; drag 5161,5000; up 5161,5000"},
         {"switched off, a hold is a long press",
          {{"enableRightClick", false}},
          "0: 5000,5000; 1000!; 1100: -",
          "left 5000,5000; up 5000,5000"},
         {"no time at all still leaves room for a tap",
          {{"rightClickTime", 0}},
          "0: 5000,5000; 0!; 80: -",
          "move 5000,5000; left 5000,5000; up 5000,5000"},
         {"other modes know no right click",
          {{"mode", 1}},
          "0: 5000,5000; 1000!; 1100: -",
          "move 5000,5000; left 5000,5000; up 5000,5000"}},
        hold);
}

TEST(TouchFeel, AShakyTapStaysInPlace) {
  check({{"inside the click range nothing moves",
          {{"mode", 2}, {"clickRange", 10}},
          "0: 5000,5000; 8: 5320,5000; 16: 5000,4680; 24: -",
          "left 5000,5000; up 5000,5000"},
         {"outside it the finger is followed exactly, and for good",
          {{"mode", 2}, {"clickRange", 10}},
          "0: 5000,5000; 8: 5321,5000; 16: 5001,5000; 24: -",
          "left 5000,5000; drag 5321,5000; drag 5001,5000; up 5001,5000"},
         {"a resting finger's tremor is not felt, a moving finger is not held",
          {{"mode", 2},
           {"enableTouchSensitivity", true},
           {"touchSensitivityTime", 100},
           {"touchSensitivityArea", 5}},
          "0: 5000,5000; 50: 5100,5000; 60: 5200,5000; 70: 5210,5000; 161: 5220,5000; 170: 5230,5000; 200: "
          "5400,5000; "
          "208: -",
          "left 5000,5000; drag 5200,5000; drag 5210,5000; drag 5220,5000; drag 5400,5000; up 5400,5000"},
         {"smoothing follows by 8 of 8 + 4 ms, whatever the rate, and lands where the finger lands",
          {{"mode", 2}, {"smoothness", 1}},
          "0: 3000,3000; 8: 6000,3000; 16: 6000,3000; 24: -; 32: 9000,9000; 40: -",
          "left 3000,3000; drag 5000,3000; drag 5667,3000; up 5667,3000; left 9000,9000; up 9000,9000"},
         {"smoothing follows a second frame of the same time exactly",
          {{"mode", 2}, {"smoothness", 1}},
          "8: 3000,3000; 8: 6000,3000; 16: -",
          "left 3000,3000; drag 6000,3000; up 6000,3000"}},
        kExact);
}

TEST(TouchFeel, ASecondTapNearAndSoonLandsOnTheFirstOnesPoint) {
  check({{"near and soon",
          {},
          "0: 5000,5000; 50: -; 300: 5100,4900; 350: -",
          "left 5000,5000; up 5000,5000; left 5000,5000; up 5000,5000"},
         {"a third one lands there too",
          {},
          "0: 5000,5000; 50: -; 300: 5100,5000; 350: -; 500: 4900,5000; 550: -",
          "left 5000,5000; up 5000,5000; left 5000,5000; up 5000,5000; left 5000,5000; up 5000,5000"},
         {"too far",
          {},
          "0: 5000,5000; 50: -; 300: 5161,5000; 350: -",
          "left 5000,5000; up 5000,5000; left 5161,5000; up 5161,5000"},
         {"too late",
          {},
          "0: 5000,5000; 50: -; 551: 5100,5000; 600: -",
          "left 5000,5000; up 5000,5000; left 5100,5000; up 5100,5000"},
         {"a drag is no first tap",
          {},
          "0: 5000,5000; 20: 6000,5000; 50: -; 300: 5100,5000; 350: -",
          "left 5000,5000; drag 6000,5000; up 6000,5000; left 5100,5000; up 5100,5000"},
         {"nor is a tap before a drag",
          {},
          "0: 5000,5000; 50: -; 100: 8000,8000; 110: 9000,8000; 150: -; 300: 5100,5000; 350: -",
          "left 5000,5000; up 5000,5000; left 8000,8000; drag 9000,8000; up 9000,8000; left 5100,5000; up "
          "5100,5000"},
         {"a long press is no first tap",
          {},
          "0: 5000,5000; 600: -; 700: 5100,5000; 750: -",
          "left 5000,5000; up 5000,5000; left 5100,5000; up 5100,5000"},
         {"the second tap may tremble",
          {},
          "0: 5000,5000; 50: -; 300: 5100,5000; 310: 5150,4950; 350: -",
          "left 5000,5000; up 5000,5000; left 5000,5000; up 5000,5000"},
         {"the second tap can be dragged away",
          {},
          "0: 5000,5000; 50: -; 300: 5100,5000; 310: 5300,5000; 350: -",
          "left 5000,5000; up 5000,5000; left 5000,5000; drag 5300,5000; up 5300,5000"}},
        kExact);
}

TEST(TouchFeel, ASecondFingerNeverMakesThePointerJump) {
  for (const int mode : {0, 1, 2}) {
    SCOPED_TRACE(mode);
    Glass glass;
    ASSERT_EQ(glass.configure(kExact), kSuccess);
    ASSERT_EQ(glass.configure({{"mode", mode}}), kSuccess);
    const auto one = glass.play("0: 1@100,100; 8: 1@150,100; 16: -");
    EXPECT_EQ(glass.play(
                  "1000: 1@100,100; 1008: 0@9000,9000 1@150,100; 1016: 0@9100,9000; 1024: 0@9200,9000 1@1,1; "
                  "1032: -"),
              one);
    EXPECT_EQ(glass.play("2000: 0@100,100; 2008: 0@150,100; 2016: -"), one) << "a fresh touch counts again";
  }
}

TEST(TouchFeel, ASettingThatChangesInTheMiddleOfATouchLeavesNothingHeld) {
  struct Change {
    const char* what;
    Dictionary before;
    const char* touch;
    Dictionary change;
    const char* atOnce;
  };
  const std::vector<Change> table = {
      {"mode", {{"mode", 2}}, "0: 100,100", {{"mode", 0}}, "up"},
      {"mode, fingers down", {{"mode", 3}}, "0: 0@100,100 1@200,200", {{"mode", 2}}, "fingers -"},
      {"disabled", {{"mode", 2}}, "0: 100,100", {{"enableTouch", false}}, "up"},
      {"disabled, fingers down", {{"mode", 3}}, "0: 4@100,100", {{"enableTouch", false}}, "fingers -"},
      {"right click", {{"mode", 2}}, "0: 100,100", {{"enableRightClick", true}}, "up"},
      {"during a hold", {{"mode", 2}, {"enableRightClick", true}}, "0: 100,100", {{"mode", 1}}, ""}};
  for (const auto& row : table) {
    SCOPED_TRACE(row.what);
    Glass glass;
    ASSERT_EQ(glass.configure(kExact), kSuccess);
    ASSERT_EQ(glass.configure(row.before), kSuccess);
    glass.play(row.touch);
    ASSERT_EQ(glass.configure(row.change), kSuccess);
    EXPECT_EQ(glass.heard(), row.atOnce);
    EXPECT_EQ(glass.driver.nextDeadline(), std::nullopt);
    EXPECT_EQ(glass.play("8: 300,300; 2000: 0@300,300 1@400,400; 2008: -"), "") << "the rest of that touch";
  }
}

TEST(TouchFeel, ATouchAfterAChangedSettingOwesNothingToTheOneBefore) {
  const Dictionary filters = {{"mode", 2}, {"smoothness", 5}, {"enableTouchSensitivity", true}};
  const Dictionary noFilters = {{"smoothness", 0}, {"enableTouchSensitivity", false}};
  struct Change {
    const char* what;
    const char* touch;
    Dictionary change, back;
  };
  const std::vector<Change> table = {
      {"the touch that it ends", "0: 5000,5000", {{"mode", 0}}, {{"mode", 2}}},
      {"the tap before it", "0: 5000,5000; 8: -", {{"mode", 0}}, {{"mode", 2}}},
      {"filters switched off and on in a touch", "-600: 5000,5000", noFilters, filters}};
  for (const auto& row : table) {
    SCOPED_TRACE(row.what);
    Glass glass;
    ASSERT_EQ(glass.configure(kExact), kSuccess);
    ASSERT_EQ(glass.configure(filters), kSuccess);
    glass.driver.setDoubleClick(std::chrono::milliseconds(500), 5);
    glass.play(row.touch);
    ASSERT_EQ(glass.configure(row.change), kSuccess);
    glass.play("16: -");
    ASSERT_EQ(glass.configure(row.back), kSuccess);
    EXPECT_EQ(glass.play("100: 5100,5000; 108: -"), "left 5100,5000; up 5100,5000");
  }
}

TEST(TouchFeel, DisabledTouchMovesNothingUntilAFreshTouchAfterEnabling) {
  Glass glass;
  ASSERT_EQ(glass.configure(kExact), kSuccess);
  ASSERT_EQ(glass.configure({{"enableTouch", false}}), kSuccess);
  EXPECT_EQ(glass.play("0: 100,100; 8: 200,200"), "");
  ASSERT_EQ(glass.configure({{"enableTouch", true}}), kSuccess);
  EXPECT_EQ(glass.play("16: 300,300; 24: -"), "");
  EXPECT_EQ(glass.play("32: 400,400; 40: -"), "left 400,400; up 400,400");
}

TEST(TouchFeel, WritingTheSameSettingsAgainDoesNotDisturbATouch) {
  Glass glass;
  ASSERT_EQ(glass.configure(kExact), kSuccess);
  glass.play("0: 100,100");
  ASSERT_EQ(glass.configure({{"mode", 2}, {"enableTouch", true}, {"clickRange", 0}}), kSuccess);
  ASSERT_EQ(glass.configure({}), kSuccess);
  ASSERT_EQ(glass.calibrate({{"statCalibrate", false}}), kSuccess);
  EXPECT_EQ(glass.play("8: 200,200; 16: -"), "drag 200,200; up 200,200");
}

TEST(TouchFeel, TheFiltersAreForOpticalTouchscreensOnly) {
  Glass glass(DeviceKind::Infrared);
  ASSERT_EQ(glass.configure({{"smoothness", 9}, {"touchSensitivityArea", 100}, {"enableRightClick", false}}),
            kSuccess);
  EXPECT_EQ(glass.play("0: 100,100; 8: 200,200; 16: -"), "left 100,100; drag 200,200; up 200,200");
}

}  // namespace
}  // namespace touchpanel::testing

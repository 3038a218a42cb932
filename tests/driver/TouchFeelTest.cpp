// What a user feels, as tables: settings and touches in, pointer out. An area of 1 is 32 units.
#include "Glass.h"

namespace touchpanel::testing {
namespace {

struct Felt {
  const char* what;
  const char* script;
  const char* heard;
};

void check(const std::vector<Felt>& table, const std::string& after = "", const std::string& settings = "") {
  for (const auto& row : table) {
    SCOPED_TRACE(row.what);
    Glass glass;
    glass.play("smoothness=0 enableTouchSensitivity=no enableRightClick=no");
    glass.play(settings);
    EXPECT_EQ(glass.play(row.script + after), row.heard);
    EXPECT_EQ(glass.driver.nextDeadline(), std::nullopt);
  }
}

TEST(TouchFeel, EachModeClicksInItsOwnWay) {
  check({{"click on touch: one click where the finger lands, then the pointer follows",
          "mode=0; 0: 1000; 8: 2000; 16: -", "left 1000; up; move 2000"},
         {"click on release: one click where the finger leaves", "mode=1; 0: 1000; 8: 2000; 16: -",
          "move 1000; move 2000; left; up"},
         {"drag: the button is held from landing to leaving", "mode=2; 0: 1000; 8: 2000; 16: -",
          "left 1000; drag 2000; up"},
         {"a resting finger says nothing new", "mode=2; 0: 1000; 8: 1000; 16: 1000; 24: -; 32: -",
          "left 1000; up"},
         {"the same settings once more do not disturb a touch",
          "0: 100; mode=2 enableTouch=yes clickRange=0; statCalibrate=no; 8: 200; 16: -",
          "left 100; drag 200; up"},
         {"multi-touch: contacts keep their ids, one leaves, one lands, all leave",
          "mode=3; 0: 3@10,20; 8: 3@11,20 7@900; 16: 7@901,900; 24: 7@901,900 0@5; 32: -; 40: -",
          "fingers 3@10,20; fingers 3@11,20 7@900; fingers 7@901,900; fingers 7@901,900 0@5; fingers -"}});
}

TEST(TouchFeel, PressAndHoldMakesExactlyOneRightClick) {
  check(
      {{"still finger, timer", "enableRightClick=yes; 0: 5000; 1000!; 1500: -", "move 5000; right; up"},
       {"still finger, frames only",
        "enableRightClick=yes; 0: 5000; 999: 5000; 1001: 5000; 2100: 5000; 2200: -", "move 5000; right; up"},
       {"the lift comes late and without a timer", "enableRightClick=yes; 0: 5000; 1200: -",
        "move 5000; right; up"},
       {"a small movement inside the area does not cancel it",
        "enableRightClick=yes; 0: 5000; 500: 5160,4840; 1000!; 1100: -", "move 5000; right; up"},
       {"after it the finger may wander", "enableRightClick=yes; 0: 5000; 1000!; 1100: 9000; 1200: -",
        "move 5000; right; up"},
       {"a timer too early does nothing; a tap is a left click",
        "enableRightClick=yes; 0: 5000; 999!; 999: -; 1000!", "move 5000; left; up"},
       {"leaving the area drags from where the finger landed",
        "enableRightClick=yes; 0: 5000; 500: 5161,5000; 1000!; 1100: -",
        "move 5000; left; drag 5161,5000; up"},
       {"switched off, a hold is a long press", "0: 5000; 1000!; 1100: -", "left 5000; up"},
       {"no time at all still leaves room for a tap",
        "enableRightClick=yes rightClickTime=0; 0: 5000; 0!; 80: -", "move 5000; left; up"},
       {"other modes know no right click", "enableRightClick=yes mode=1; 0: 5000; 1000!; 1100: -",
        "move 5000; left; up"}});
}

TEST(TouchFeel, AShakyTapStaysInPlace) {
  check(
      {{"inside the click range nothing moves", "clickRange=10; 0: 5000; 8: 5320,5000; 16: 5000,4680; 24: -",
        "left 5000; up"},
       {"outside it the finger is followed exactly, and for good",
        "clickRange=10; 0: 5000; 8: 5321,5000; 16: 5001,5000; 24: -",
        "left 5000; drag 5321,5000; drag 5001,5000; up"},
       {"a resting finger's tremor is not felt, a moving finger is not held",
        "enableTouchSensitivity=yes touchSensitivityTime=100 touchSensitivityArea=5; 0: 5000; 50: 5100,5000; "
        "60: 5200,5000; 70: 5210,5000; 161: 5220,5000; 170: 5230,5000; 200: 5400,5000; 208: -",
        "left 5000; drag 5200,5000; drag 5210,5000; drag 5220,5000; drag 5400,5000; up"},
       {"smoothing follows by 8 of 8 + 4 ms, whatever the rate, lands where the finger lands, ends where it "
        "leaves",
        "smoothness=1; 0: 3000; 8: 6000,3000; 16: 6000,3000; 24: -; 32: 9000; 40: -",
        "left 3000; drag 5000,3000; drag 5667,3000; drag 6000,3000; up; left 9000; up"},
       {"smoothing reaches a finger that stops, by 16 of 16 + 4 ms a step",
        "smoothness=1; 0: 3000; 8: 6000,3000; 23!; 24!; 40!; 56!; 72!; 88!; 104!; 112: -",
        "left 3000; drag 5000,3000; drag 5800,3000; drag 5960,3000; drag 5992,3000; drag 5998,3000; drag "
        "6000,3000; "
        "up"},
       {"a frame that was read after a later timer does not jump",
        "smoothness=1; 0: 3000; 8: 6000,3000; 24!; 23: 9000,3000; 31: 9000,3000; 32: -",
        "left 3000; drag 5000,3000; drag 5800,3000; drag 7933,3000; drag 9000,3000; up"},
       {"each contact ends where it leaves, the others go on",
        "mode=3 smoothness=1; 0: 0@3000 1@100; 8: 0@6000 1@400; 16: 1@400; 24: -",
        "fingers 0@3000 1@100; fingers 0@5000 1@300; fingers 0@6000 1@300; fingers 1@367; fingers 1@400; "
        "fingers -"},
       {"smoothing follows a second frame of the same time exactly",
        "smoothness=1; 8: 3000; 8: 6000,3000; 16: -", "left 3000; drag 6000,3000; up"}});
}

TEST(TouchFeel, ASecondTapNearAndSoonLandsOnTheFirstOnesPoint) {
  check({{"near and soon", "0: 5000; 50: -; 300: 5100,4900; 350: -", "left 5000; up; left; up"},
         {"a third one lands there too", "0: 5000; 50: -; 300: 5100,5000; 350: -; 500: 4900,5000; 550: -",
          "left 5000; up; left; up; left; up"},
         {"too far", "0: 5000; 50: -; 300: 5161,5000; 350: -", "left 5000; up; left 5161,5000; up"},
         {"too late", "0: 5000; 50: -; 551: 5100,5000; 600: -", "left 5000; up; left 5100,5000; up"},
         {"a drag is no first tap", "0: 5000; 20: 6000,5000; 50: -; 300: 5100,5000; 350: -",
          "left 5000; drag 6000,5000; up; left 5100,5000; up"},
         {"nor is a tap before a drag",
          "0: 5000; 50: -; 100: 8000; 110: 9000,8000; 150: -; 300: 5100,5000; 350: -",
          "left 5000; up; left 8000; drag 9000,8000; up; left 5100,5000; up"},
         {"a long press is no first tap", "0: 5000; 600: -; 700: 5100,5000; 750: -",
          "left 5000; up; left 5100,5000; up"},
         {"the second tap may tremble", "0: 5000; 50: -; 300: 5100,5000; 310: 5150,4950; 350: -",
          "left 5000; up; left; up"},
         {"the second tap can be dragged away", "0: 5000; 50: -; 300: 5100,5000; 310: 5300,5000; 350: -",
          "left 5000; up; left; drag 5300,5000; up"}});
}

TEST(TouchFeel, ASecondFingerNeverMakesThePointerJump) {
  for (const char* mode : {"mode=0", "mode=1", "mode=2"}) {
    SCOPED_TRACE(mode);
    Glass glass;
    glass.play("smoothness=0 enableTouchSensitivity=no enableRightClick=no");
    glass.play(mode);
    const std::string elsewhere = "0: 1@500; 8: -; ";
    const auto one = glass.play(elsewhere + "1000: 1@100; 1008: 1@150,100; 1016: -");
    EXPECT_EQ(glass.play(elsewhere +
                         "1000: 1@100; 1008: 0@9000 1@150,100; 1016: 0@9100,9000; 1024: 0@9200; 1032: -"),
              one);
    EXPECT_EQ(glass.play(elsewhere + "1000: 0@100; 1008: 0@150,100; 1016: -"), one)
        << "a fresh touch counts again";
  }
}

TEST(TouchFeel, TwoTouchesInARowClickEachInItsOwnPlace) {
  for (const auto& [mode, heard] : {std::pair{"mode=0", "left 1000; up; left 9000; up"},
                                    {"mode=1", "move 1000; left; up; move 9000; left; up"},
                                    {"mode=2", "left 1000; up; left 9000; up"},
                                    {"enableRightClick=yes", "move 1000; left; up; move 9000; left; up"}})
    check({{mode, "0: 1000; 50: 1@9000; 90: -", heard},
           {mode, "0: 1000; 50: -; 60: 9000; 90: -", heard},
           {mode, "0: 1000; 50: -; 70: 9000; 90: -", heard}},
          "", mode);
}

TEST(TouchFeel, DirtOnTheFrameStopsLeadingWhenAFingerLands) {
  check(
      {{"it is let go where it is, and each finger beside it leads",
        "0: 1@500; 10000: 1@550,500 0@9000; 10008: 1@500; 10100: 1@500 2@8000; 10108: 1@500",
        "left 500; drag 550,500; up; left 9000; up; left 8000; up"},
       {"it makes no click", "mode=1; 0: 1@500; 10000: 1@500 0@9000; 10008: 1@500",
        "move 500; move 9000; left; up"},
       {"it makes no tap either", "enableRightClick=yes; 0: 1@500; 10000: 1@500 0@9000; 10008: 1@500",
        "move 500; right; up; move 9000; left; up"},
       {"it counts again once it has left", "0: 1@500; 10000: 1@500 0@9000; 10008: -; 10100: 1@500; 10108: -",
        "left 500; up; left 9000; up; left 500; up"},
       {"a finger that moves now and then is none",
        "0: 1@500; 9000: 1@661,500; 10000: 1@661,500 0@9000; 10008: 1@700,500; 10016: -",
        "left 500; drag 661,500; drag 700,500; up"},
       {"dirt of before a change does not block the touches after it",
        "0: 1@500; mode=0; 8: 1@500; 16: 1@500 0@9000; 24: 1@500", "left 500; up; left 9000; up"}},
      "; 20000: -");
}

TEST(TouchFeel, ASettingThatChangesInTheMiddleOfATouchLeavesNothingHeld) {
  check({{"mode", "0: 100; mode=0", "left 100; up"},
         {"mode, fingers down", "mode=3; 0: 0@100 1@200; mode=2", "fingers 0@100 1@200; fingers -"},
         {"disabled", "0: 100; enableTouch=no", "left 100; up"},
         {"disabled, fingers down", "mode=3; 0: 4@100; enableTouch=no", "fingers 4@100; fingers -"},
         {"enabled", "enableTouch=no; 0: 100; enableTouch=yes", ""},
         {"right click", "0: 100; enableRightClick=yes", "left 100; up"},
         {"during a hold", "enableRightClick=yes; 0: 100; mode=1", "move 100"}},
        "; 8: 300; 2000: 300; 2008: -");
}

TEST(TouchFeel, ATouchAfterAChangedSettingOwesNothingToTheOneBefore) {
  check(
      {{"the touch that it ends", "smoothness=5 enableTouchSensitivity=yes; 0: 5000; mode=0; 16: -; mode=2",
        "left 5000; up; left 5100,5000; up"},
       {"the tap before it", "0: 5000; 8: -; mode=0; 16: -; mode=2", "left 5000; up; left 5100,5000; up"},
       {"filters switched off and on in a touch",
        "smoothness=5 enableTouchSensitivity=yes; -600: 5000; smoothness=0 enableTouchSensitivity=no; 16: -; "
        "smoothness=5 enableTouchSensitivity=yes",
        "left 5000; up; left 5100,5000; up"}},
      "; 100: 5100,5000; 108: -");
}

TEST(TouchFeel, ATouchLandsWhereItsMonitorLiesHoweverThatIsTurned) {
  const Dictionary right = {{"minX", 16384}, {"minY", 8192}, {"maxX", 32767}, {"maxY", 24575}};
  struct Row {
    const char* key;
    int turn;
    const char* script;
    const char* heard;
  };
  for (const auto& [key, turn, script, heard] :
       {Row{"turn", 0, "0: 0; 8: 32767,1000; 16: -", "left 16384,8192; drag 32767,8692; up"},
        Row{"turn", 1, "0: 0; 8: 32767,1000; 16: -", "left 16384,24575; drag 16884,8192; up"},
        Row{"turn", 2, "0: 0; 8: 32767,1000; 16: -", "left 32767,24575; drag 16384,24075; up"},
        Row{"turn", 3, "0: 0; 8: 32767,1000; 16: -", "left 32767,8192; drag 32267,24575; up"},
        Row{"turn", 1, "statCalibrate=yes; 0: 0; 8: -", "left 16384,24575; up"},
        Row{"touchTurn", 1, "mode=3; 0: 2@30,40; 8: -", "fingers 2@40,32737; fingers -"}}) {
    SCOPED_TRACE(turn);
    Glass glass;
    glass.play("smoothness=0 enableTouchSensitivity=no enableRightClick=no");
    EXPECT_EQ(glass.place(right), kSuccess);
    EXPECT_EQ(glass.place({{key, turn}}), kSuccess);
    EXPECT_EQ(glass.play(script), heard);
  }
  Glass glass;
  EXPECT_EQ(glass.play("enableRightClick=no smoothness=0; 0: 1000"), "left 1000");
  glass.place({{"name", "another name ends no touch"}});
  EXPECT_EQ(glass.play("8: 9000"), "drag 9000");
  glass.place(right);
  EXPECT_EQ(glass.play("16: 9100; 24: -; 32: 0"), "left 16384,8192") << "let go where it was, then elsewhere";
}

TEST(TouchFeel, TheFiltersAreForOpticalTouchscreensOnly) {
  Glass glass(DeviceKind::Infrared);
  EXPECT_EQ(glass.play("smoothness=9 touchSensitivityArea=100 enableRightClick=no; 0: 100; 8: 200; 16: -"),
            "left 100; drag 200; up");
}

}  // namespace
}  // namespace touchpanel::testing

// What may be written to a driver instance, what is read back, and what survives a restart.
#include "Glass.h"

namespace touchpanel::testing {
namespace {

TEST(DriverProperties, StartWithWhatATouchscreenDoesThatNobodyConfigured) {
  Glass glass;
  const Dictionary expected = {{"calibration", Dictionary{{"calibrateStatus", false},
                                                          {"calibParams", Bytes(116)},
                                                          {"minX", 0},
                                                          {"minY", 0},
                                                          {"maxX", 32767},
                                                          {"maxY", 32767},
                                                          {"statCalibrate", false},
                                                          {"x", 0},
                                                          {"y", 0},
                                                          {"pointId", 0}}},
                               {"configration", Dictionary{{"mode", 2},
                                                           {"clickRange", 0},
                                                           {"enableRightClick", true},
                                                           {"rightClickTime", 1000},
                                                           {"rightClickArea", 5},
                                                           {"enableTouchSensitivity", true},
                                                           {"touchSensitivityTime", 100},
                                                           {"touchSensitivityArea", 5},
                                                           {"smoothness", 1},
                                                           {"enableTouch", true}}}};
  EXPECT_EQ(glass.driver.properties(), expected);
}

TEST(DriverProperties, TakeEachMessageOfAControlPanelAndKeepAbsentKeys) {
  Glass glass;
  auto calibration = *glass.driver.properties().dictionary("calibration");
  auto configration = *glass.driver.properties().dictionary("configration");
  EXPECT_EQ(glass.calibrate({{"calibrateStatus", true}, {"calibParams", Bytes(116, 9)}, {"maxX", 32000}}),
            kSuccess);
  EXPECT_EQ(glass.calibrate({{"calibParam", Bytes(116, 1)}}), kSuccess);
  EXPECT_EQ(glass.configure({{"mode", std::int64_t{1}}, {"clickRange", 1000}, {"rightClickTime", 60000}}),
            kSuccess);
  EXPECT_EQ(glass.configure({{"enableTouch", false}}), kSuccess);
  EXPECT_EQ(glass.configure({}), kSuccess);
  calibration.set("calibrateStatus", true);
  calibration.set("calibParams", Bytes(116, 1));  // the singular key means the same block
  calibration.set("maxX", 32000);
  configration.set("mode", 1);
  configration.set("clickRange", 1000);
  configration.set("rightClickTime", 60000);
  configration.set("enableTouch", false);
  EXPECT_EQ(glass.driver.properties(),
            (Dictionary{{"calibration", calibration}, {"configration", configration}}));
}

TEST(DriverProperties, RefuseABadMessageWhole) {
  Glass glass;
  const auto before = glass.driver.properties();
  const std::vector<std::pair<const char*, Value>> bad = {
      {"configration", Dictionary{{"clickRange", 7}, {"mode", 4}}},
      {"configration", Dictionary{{"clickRange", 7}, {"mode", -1}}},
      {"configration", Dictionary{{"clickRange", 7}, {"mode", std::int64_t{1} << 33}}},
      {"configration", Dictionary{{"clickRange", 7}, {"mode", true}}},
      {"configration", Dictionary{{"clickRange", 7}, {"mode", 2.0}}},
      {"configration", Dictionary{{"clickRange", 7}, {"enableTouch", 0}}},
      {"configration", Dictionary{{"clickRange", 7}, {"rightClickTime", 60001}}},
      {"configration", Dictionary{{"clickRange", 7}, {"configuration", 1}}},
      {"configration", Dictionary{{"clickRange", 1001}}},
      {"configration", 7},
      {"calibration", Dictionary{{"calibrateStatus", true}, {"calibParams", Bytes(115)}}},
      {"calibration", Dictionary{{"calibrateStatus", true}, {"calibParam", Bytes(117)}}},
      {"calibration", Dictionary{{"calibrateStatus", true}, {"calibParams", "text"}}},
      {"calibration", Dictionary{{"calibrateStatus", true}, {"maxX", 32768}}},
      {"calibration", Dictionary{{"calibrateStatus", true}, {"minY", 32767}}},
      {"calibration", Dictionary{{"calibrateStatus", true}, {"minX", 32767}}},
      {"calibration", Dictionary{{"statCalibrate", true}, {"pointId", -1}}},
      {"calibration", Dictionary{{"statCalibrate", true}, {"x", 5}}},
      {"calibration", Dictionary{{"pointId", 3}, {"statCalibrate", 1}}}};
  for (std::size_t i = 0; i < bad.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(glass.driver.setProperty(bad[i].first, bad[i].second), kErrorBadArgument);
    EXPECT_EQ(glass.driver.properties(), before);
  }
  EXPECT_EQ(glass.driver.setProperty("Calibration", Dictionary{}), kErrorUnsupported);
}

TEST(DriverProperties, RestoreWhatIsValidOfADamagedState) {
  Glass glass;
  EXPECT_FALSE(glass.driver.restore(
      {{"calibration",
        Dictionary{
            {"calibrateStatus", true}, {"minX", 30000}, {"maxX", 200}, {"minY", 10}, {"calibParams", 1}}},
       {"configration", Dictionary{{"mode", 9}, {"smoothness", 4}, {"odd", 1}}},
       {"other", 1}}));
  const auto state = glass.driver.state();
  EXPECT_TRUE(state.dictionary("calibration")->boolean("calibrateStatus"));
  EXPECT_EQ(state.dictionary("calibration")->integer("minX"), 0) << "an area inside out is no area";
  EXPECT_EQ(state.dictionary("calibration")->integer("maxX"), 32767);
  EXPECT_EQ(state.dictionary("configration")->integer("mode"), 2);
  EXPECT_EQ(state.dictionary("configration")->integer("smoothness"), 4);
}

}  // namespace
}  // namespace touchpanel::testing

// What may be written to a driver instance, and what is read back.
#include "Glass.h"
#include "support/CalibrationParams.h"

namespace touchpanel::testing {
namespace {

TEST(DriverProperties, TakeEachMessageOfAControlPanelAndKeepAbsentKeys) {
  Glass glass;
  Dictionary calibration = {{"calibrateStatus", false},
                            {"calibParams", Bytes(116)},
                            {"minX", 0},
                            {"minY", 0},
                            {"maxX", 32767},
                            {"maxY", 32767},
                            {"statCalibrate", false},
                            {"x", 0},
                            {"y", 0},
                            {"pointId", 0}};
  Dictionary configration = {{"mode", 2},
                             {"clickRange", 0},
                             {"enableRightClick", true},
                             {"rightClickTime", 1000},
                             {"rightClickArea", 5},
                             {"enableTouchSensitivity", true},
                             {"touchSensitivityTime", 100},
                             {"touchSensitivityArea", 5},
                             {"smoothness", 1},
                             {"enableTouch", true}};
  Dictionary monitor = {{"identity", ""},     {"name", ""},     {"widthMm", 0},   {"heightMm", 0},
                        {"minX", 0},          {"minY", 0},      {"maxX", 32767},  {"maxY", 32767},
                        {"turn", 0},          {"touchMinX", 0}, {"touchMinY", 0}, {"touchMaxX", 32767},
                        {"touchMaxY", 32767}, {"touchTurn", 0}};
  const auto expectRead = [&] {
    EXPECT_EQ(
        glass.driver.properties(),
        (Dictionary{{"calibration", calibration}, {"configration", configration}, {"monitor", monitor}}));
    driver::TouchDriver restored([](const OutputFrame&) {});
    EXPECT_TRUE(restored.restore(glass.driver.state()));
    EXPECT_EQ(restored.state(), glass.driver.state());
  };
  expectRead();
  const std::vector<std::pair<const char*, Dictionary>> messages = {
      {"calibration",
       {{"calibrateStatus", true}, {"calibParams", bytesOf(shiftedBy(3, 4))}, {"maxX", 32000}}},
      {"configration", {{"mode", 1}, {"clickRange", 1000}, {"rightClickTime", 60000}}},
      {"configration", {{"enableTouch", false}}},
      {"monitor", {{"identity", "ABC 1 2"}, {"name", "Left"}, {"minX", 100}, {"maxX", 200}, {"turn", 3}}},
      {"monitor", {{"minX", 300}, {"maxX", 301}, {"touchMaxY", 1}, {"touchTurn", 2}, {"widthMm", 20000}}},
      {"configration", {}}};
  for (const auto& [name, message] : messages) {
    EXPECT_EQ(glass.driver.setProperty(name, message), kSuccess);
    for (const auto& [key, value] : message)
      (name == std::string("calibration") ? calibration
       : name == std::string("monitor")   ? monitor
                                          : configration)
          .set(key, value);
    expectRead();
  }
  EXPECT_EQ(glass.calibrate({{"calibParam", bytesOf(shiftedBy(1, 2))}}), kSuccess);
  EXPECT_EQ(glass.configure({{"mode", std::int64_t{0}}}), kSuccess);
  calibration.set("calibParams", bytesOf(shiftedBy(1, 2)));  // the singular key means the same block
  configration.set("mode", 0);
  expectRead();
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
      {"calibration", Dictionary{{"minY", 5}, {"calibParams", Bytes(115)}}},
      {"calibration", Dictionary{{"minY", 5}, {"calibParam", Bytes(117)}}},
      {"calibration", Dictionary{{"minY", 5}, {"calibParams", "text"}}},
      {"calibration", Dictionary{{"minY", 5}, {"maxX", 32768}}},
      {"calibration", Dictionary{{"minX", 5}, {"minY", 32767}}},
      {"calibration", Dictionary{{"minY", 5}, {"minX", 32767}}},
      {"monitor", Dictionary{{"name", "other"}, {"minX", 32767}}},
      {"monitor", Dictionary{{"name", "other"}, {"touchMaxY", 0}}},
      {"monitor", Dictionary{{"name", "other"}, {"maxY", 32768}}},
      {"monitor", Dictionary{{"name", "other"}, {"turn", 4}}},
      {"monitor", Dictionary{{"name", "other"}, {"heightMm", -1}}},
      {"monitor", Dictionary{{"name", "other"}, {"identity", std::string(256, 'a')}}},
      {"monitor", Dictionary{{"name", "other"}, {"identity", 5}}},
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

}  // namespace
}  // namespace touchpanel::testing

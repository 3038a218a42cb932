#include <functional>

#include <gmock/gmock.h>

#include "discovery/DriverChannel.h"
#include "support/FakeRegistry.h"

namespace touchpanel {
namespace {

using testing::FakeRegistry;

/// Every byte differs from its neighbours, so a shifted or swapped block is noticed.
_CALIB_PARAMS numberedParams() {
  std::array<std::uint8_t, kCalibParamsSize> image;
  for (std::size_t i = 0; i < image.size(); ++i) image[i] = static_cast<std::uint8_t>(i + 1);
  _CALIB_PARAMS params;
  copyImage(image, params);
  return params;
}

Bytes numberedBytes() {
  Bytes bytes;
  for (int i = 1; i <= 116; ++i) bytes.push_back(static_cast<std::uint8_t>(i));
  return bytes;
}

TEST(DriverChannel, SendsEachMessageWithExactlyItsKeysInOrder) {
  struct Case {
    const char* name;
    std::function<void(DriverChannel&, RegistryObject)> send;
    const char* property;
    Dictionary message;
  };
  const Case cases[] = {
      {"start capture", [](auto& channel, auto handle) { channel.setCapture(handle, true); }, "calibration",
       Dictionary{{"statCalibrate", true}}},
      {"stop capture", [](auto& channel, auto handle) { channel.setCapture(handle, false); }, "calibration",
       Dictionary{{"statCalibrate", false}}},
      {"select target", [](auto& channel, auto handle) { channel.selectTarget(handle, 24); }, "calibration",
       Dictionary{{"pointId", 24}}},
      {"reset", [](auto& channel, auto handle) { channel.resetCalibration(handle); }, "calibration",
       Dictionary{{"calibrateStatus", false}, {"minX", 0}, {"minY", 0}, {"maxX", 32767}, {"maxY", 32767}}},
      {"saved", [](auto& channel, auto handle) { channel.calibrationSaved(handle, numberedParams()); },
       "calibration",
       Dictionary{{"calibrateStatus", true},
                  {"calibParams", numberedBytes()},
                  {"minX", 0},
                  {"minY", 0},
                  {"maxX", 32767},
                  {"maxY", 32767}}},
      {"point run cancelled",
       [](auto& channel, auto handle) { channel.pointCalibrationCancelled(handle, true, numberedParams()); },
       "calibration", Dictionary{{"calibrateStatus", true}, {"calibParams", numberedBytes()}}},
      {"region run cancelled",
       [](auto& channel, auto handle) {
         channel.regionCalibrationCancelled(handle, false, numberedParams());
       },
       "calibration", Dictionary{{"calibrateStatus", false}, {"calibParam", numberedBytes()}}},
      {"apply settings",
       [](auto& channel, auto handle) {
         channel.applySettings(handle, {.mode = 3,
                                        .clickRange = 11,
                                        .enableRightClick = true,
                                        .rightClickTime = 12,
                                        .rightClickArea = 13,
                                        .enableTouchSensitivity = false,
                                        .touchSensitivityTime = 14,
                                        .touchSensitivityArea = 15,
                                        .smoothness = 16});
       },
       "configration",
       Dictionary{{"mode", 3},
                  {"clickRange", 11},
                  {"enableRightClick", true},
                  {"rightClickTime", 12},
                  {"rightClickArea", 13},
                  {"enableTouchSensitivity", false},
                  {"touchSensitivityTime", 14},
                  {"touchSensitivityArea", 15},
                  {"smoothness", 16}}},
      {"touch mode as stored", [](auto& channel, auto handle) { channel.setMode(handle, "two"); },
       "configration", Dictionary{{"mode", "two"}}},
      {"enable touch", [](auto& channel, auto handle) { channel.enableTouch(handle, true); }, "configration",
       Dictionary{{"enableTouch", true}}},
      {"calibration probe", [](auto& channel, auto handle) { channel.probeCalibration(handle); },
       "calibration", Dictionary()},
      {"configration probe", [](auto& channel, auto handle) { channel.probeConfigration(handle); },
       "configration", Dictionary()},
  };
  for (const auto& expected : cases) {
    FakeRegistry registry;
    const auto handle = registry.addDriver(7);
    DriverChannel channel(registry);
    expected.send(channel, handle);
    EXPECT_EQ(registry.writes,
              (std::vector<FakeRegistry::Write>{{handle, expected.property, expected.message}}))
        << expected.name;
  }
}

TEST(DriverChannel, ProbesTellWhetherTheInstanceLives) {
  FakeRegistry registry;
  const auto handle = registry.addDriver(7);
  DriverChannel channel(registry);
  EXPECT_TRUE(channel.probeCalibration(handle));
  EXPECT_TRUE(channel.probeConfigration(handle));
  registry.remove(handle);
  EXPECT_FALSE(channel.probeCalibration(handle));
  EXPECT_FALSE(channel.probeConfigration(handle));
}

TEST(DriverChannel, ReadsTheCapturedTouchWithMissingKeysAsZero) {
  FakeRegistry registry;
  const auto handle = registry.addDriver(7);
  DriverChannel channel(registry);
  EXPECT_EQ(channel.readCapture(handle), std::nullopt) << "nothing published yet";

  auto& properties = *registry.objects[handle].properties;
  properties.set("calibration", Dictionary{{"x", 100}, {"y", 200}, {"pointId", 3}});
  EXPECT_EQ(channel.readCapture(handle), (CapturedPoint{.x = 100, .y = 200, .pointId = 3}));
  properties.set("calibration", Dictionary{{"y", 200}, {"pointId", "3"}});
  EXPECT_EQ(channel.readCapture(handle), (CapturedPoint{.x = 0, .y = 200, .pointId = 0}));
  properties.set("calibration", "gone odd");
  EXPECT_EQ(channel.readCapture(handle), std::nullopt);

  registry.objects[handle].properties.reset();
  EXPECT_EQ(channel.readCapture(handle), std::nullopt) << "unreadable";
  EXPECT_EQ(channel.readCapture(handle + 100), std::nullopt) << "no such instance";
}

TEST(DriverChannel, WritesTheDoubleClickAsTwoPropertiesAndWrapsTheTime) {
  const std::pair<std::int32_t, std::int32_t> times[] = {
      {500, 500'000'000}, {2147, 2'147'000'000}, {2148, -2'146'967'296}, {5000, 705'032'704}};
  for (const auto& [milliseconds, written] : times) {
    FakeRegistry registry;
    const auto hid = registry.add("IOHIDSystem");
    DriverChannel(registry).writeDoubleClick(hid, milliseconds, 4);
    EXPECT_EQ(registry.writes, (std::vector<FakeRegistry::Write>{{hid, "HIDClickTime", written},
                                                                 {hid, "HIDClickSpace", Array{4, 4}}}))
        << milliseconds;
  }
}

}  // namespace
}  // namespace touchpanel

#pragma once

#include <functional>
#include <memory>
#include <numeric>
#include <optional>
#include <vector>

#include <gmock/gmock.h>

#include "contract/DriverProperties.h"
#include "platform/Registry.h"

// What every provider of the Registry port must do, whatever stands behind it. A provider's test program
// includes this, describes its world and instantiates the suite:
//
//   INSTANTIATE_TEST_SUITE_P(Simulated, RegistryContract, ::testing::Values(RegistryProvider{makeWorld}));

namespace touchpanel::testing {

/// A provider together with the touchscreens behind it, of which there are none at first.
class RegistryWorld {
 public:
  struct RawPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
  };

  virtual ~RegistryWorld() = default;
  virtual Registry& registry() = 0;
  /// A touchscreen arrives at `locationId`, which is free; its driver instance is there when this returns.
  virtual void publish(std::uint32_t locationId) = 0;
  /// It leaves again; its driver instance is gone when this returns.
  virtual void withdraw(std::uint32_t locationId) = 0;
  /// A finger comes down on it somewhere and leaves again. Returns the raw point of the sensor, which the
  /// driver instance has processed when this returns.
  virtual RawPoint touch(std::uint32_t locationId) = 0;
};

struct RegistryProvider {
  std::function<std::unique_ptr<RegistryWorld>()> make;
};

class RegistryContract : public ::testing::TestWithParam<RegistryProvider> {
 protected:
  static constexpr std::uint32_t kHere = 0x14100000;
  static constexpr std::uint32_t kThere = 0x94220000;  // with the highest bit set: ids are not signed

  std::vector<RegistryObject> drivers() { return registry.instancesOf(class_name::kTouchDriver); }
  RegistryObject published(std::uint32_t locationId) {
    world->publish(locationId);
    const auto found = drivers();
    return found.empty() ? 0 : found.back();
  }
  Dictionary group(RegistryObject object, std::string_view name) {
    const auto properties = registry.properties(object);
    const auto* found = properties ? properties->dictionary(name) : nullptr;
    return found ? *found : Dictionary();
  }

  std::unique_ptr<RegistryWorld> world = GetParam().make();
  Registry& registry = world->registry();
};

TEST_P(RegistryContract, ListsDriverInstancesByArrivalWithALocationAndAHidSystemBelowEach) {
  EXPECT_TRUE(drivers().empty());
  const auto first = published(kThere);
  const auto second = published(kHere);
  EXPECT_EQ(drivers(), (std::vector{first, second})) << "a handle stays the same";
  EXPECT_TRUE(first != second && first != 0 && second != 0);
  EXPECT_TRUE(registry.instancesOf("SomethingElse").empty());
  for (const auto& [driver, location] : {std::pair{first, kThere}, std::pair{second, kHere}}) {
    EXPECT_TRUE(registry.conformsTo(driver, class_name::kTouchDriver));
    EXPECT_FALSE(registry.conformsTo(driver, class_name::kPointingDevice));
    const auto children = registry.childrenOf(driver);
    ASSERT_EQ(children.size(), 2U);
    EXPECT_TRUE(registry.conformsTo(children[0], class_name::kPointingDevice));
    EXPECT_TRUE(registry.conformsTo(children[1], class_name::kHidSystem));
    EXPECT_TRUE(registry.childrenOf(children[0]).empty());
    EXPECT_EQ(registry.properties(children[0]),
              (Dictionary{{property::kLocationID, std::int64_t{location}}}));
  }
}

TEST_P(RegistryContract, HandsAMessageToItsTouchscreenAloneAndGivesItBackByteForByte) {
  const auto here = published(kHere);
  const auto hid = registry.childrenOf(here).at(1);
  const auto others = registry.properties(published(kThere));
  Bytes params(116);
  std::iota(params.begin(), params.end(), std::uint8_t{0x7F});
  const std::pair<const char*, Dictionary> messages[] = {
      {property::kConfigration, {{configration_key::kMode, 3}, {configration_key::kEnableTouch, false}}},
      {property::kCalibration,
       {{calibration_key::kCalibrateStatus, true}, {calibration_key::kCalibParams, params}}}};
  for (const auto& [name, message] : messages) {
    auto expected = group(here, name);
    EXPECT_EQ(registry.setProperty(here, name, Dictionary()), kSuccess) << "a sign of life";
    EXPECT_EQ(group(here, name), expected);
    EXPECT_EQ(registry.setProperty(here, name, message), kSuccess);
    for (const auto& [key, value] : message) expected.set(key, value);
    EXPECT_EQ(group(here, name), expected);
  }
  EXPECT_EQ(registry.properties(drivers().at(1)), others);

  EXPECT_EQ(registry.setProperty(hid, property::kHidClickTime, 700'000'000), kSuccess);
  EXPECT_EQ(registry.setProperty(hid, property::kHidClickSpace, Array{6, 7}), kSuccess);
  auto parameters = group(hid, property::kHidParameters);
  const auto before = parameters;
  parameters.set(property::kHidClickTime, std::int64_t{700'000'000});
  parameters.set(property::kHidClickSpace, Array{6, 7});
  EXPECT_EQ(before, parameters);
}

TEST_P(RegistryContract, RefusesWhatIsNoMessageAndChangesNothing) {
  const auto driver = published(kHere);
  const auto before = registry.properties(driver);
  const std::pair<const char*, Value> refused[] = {
      {property::kConfigration, 1},
      {property::kConfigration,
       Dictionary{{configration_key::kClickRange, 9}, {configration_key::kMode, Bytes{1}}}}};
  for (const auto& [name, value] : refused)
    EXPECT_EQ(registry.setProperty(driver, name, value), kErrorBadArgument);
  EXPECT_EQ(registry.setProperty(driver, "configuration", Dictionary()), kErrorUnsupported);
  EXPECT_EQ(registry.properties(driver), before);
}

TEST_P(RegistryContract, PublishesEachCapturedTouchWithItsTarget) {
  const auto driver = published(kHere);
  for (const auto& message :
       {Dictionary{{calibration_key::kStatCalibrate, true}}, Dictionary{{calibration_key::kPointId, 7}}}) {
    EXPECT_EQ(registry.setProperty(driver, property::kCalibration, message), kSuccess);
    const auto raw = world->touch(kHere);
    const auto calibration = group(driver, property::kCalibration);
    EXPECT_EQ(calibration.integer(calibration_key::kX), raw.x);
    EXPECT_EQ(calibration.integer(calibration_key::kY), raw.y);
    EXPECT_EQ(calibration.integer(calibration_key::kPointId), message.integer(calibration_key::kPointId));
  }
}

TEST_P(RegistryContract, FindsNothingBehindAHandleThatIsGoneAndNeverGivesItAway) {
  const auto driver = published(kHere);
  const auto other = published(kThere);
  const auto children = registry.childrenOf(driver);
  world->withdraw(kHere);
  EXPECT_EQ(drivers(), std::vector{other});
  const auto next = published(kHere);
  EXPECT_NE(next, 0U);
  EXPECT_EQ(registry.setProperty(next, property::kCalibration, Dictionary()), kSuccess);
  EXPECT_TRUE(registry.childrenOf(driver).empty());
  for (const auto object : {driver, children.at(0), children.at(1), RegistryObject{0}, ~RegistryObject{0}}) {
    EXPECT_EQ(registry.properties(object), std::nullopt);
    EXPECT_FALSE(registry.conformsTo(object, class_name::kTouchDriver));
    EXPECT_EQ(registry.setProperty(object, property::kCalibration, Dictionary()), kErrorNoDevice);
  }
}

}  // namespace touchpanel::testing

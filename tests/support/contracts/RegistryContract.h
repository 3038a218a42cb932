#pragma once

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>
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
  /// A finger comes down on it somewhere and leaves again. Returns the raw point that the sensor told; the
  /// driver instance has worked it in when this returns.
  virtual RawPoint touch(std::uint32_t locationId) = 0;
};

struct RegistryProvider {
  std::function<std::unique_ptr<RegistryWorld>()> make;
};

class RegistryContract : public ::testing::TestWithParam<RegistryProvider> {
 protected:
  static constexpr std::uint32_t kHere = 0x14100000;
  static constexpr std::uint32_t kThere = 0x94220000;  // with the highest bit set: ids are not signed

  std::unique_ptr<RegistryWorld> world = GetParam().make();
  Registry& registry = world->registry();

  std::vector<RegistryObject> drivers() { return registry.instancesOf(class_name::kTouchDriver); }
  RegistryObject published(std::uint32_t locationId) {
    world->publish(locationId);
    const auto found = drivers();
    return found.empty() ? 0 : found.back();
  }
  /// The one child of `driver` that conforms to `className`; 0 when there is not exactly one.
  RegistryObject childOf(RegistryObject driver, std::string_view className) {
    RegistryObject found = 0;
    for (const auto child : registry.childrenOf(driver)) {
      if (!registry.conformsTo(child, className)) continue;
      if (found != 0) return 0;
      found = child;
    }
    return found;
  }
  Dictionary group(RegistryObject driver, std::string_view name) {
    const auto properties = registry.properties(driver);
    const auto* found = properties ? properties->dictionary(name) : nullptr;
    return found == nullptr ? Dictionary() : *found;
  }
  Dictionary hidParameters(RegistryObject driver) {
    return group(childOf(driver, class_name::kHidSystem), property::kHidParameters);
  }
};

TEST_P(RegistryContract, ListsDriverInstancesInTheOrderOfTheirArrival) {
  EXPECT_TRUE(drivers().empty());
  world->publish(kThere);
  const auto one = drivers();
  ASSERT_EQ(one.size(), 1U);
  world->publish(kHere);
  const auto two = drivers();
  ASSERT_EQ(two.size(), 2U);
  EXPECT_EQ(two[0], one[0]) << "a handle stays the same";
  EXPECT_NE(two[1], two[0]);
  EXPECT_NE(two[1] * two[0], 0U) << "0 is no object";
  EXPECT_EQ(drivers(), two);
  for (const auto driver : two) {
    EXPECT_TRUE(registry.conformsTo(driver, class_name::kTouchDriver));
    EXPECT_FALSE(registry.conformsTo(driver, class_name::kPointingDevice));
  }
  EXPECT_TRUE(registry.instancesOf("SomethingElse").empty());
}

TEST_P(RegistryContract, HasAPointingDeviceThatTellsTheLocationAndAHidSystemBelowEachDriver) {
  for (const auto location : {kHere, kThere}) {
    const auto driver = published(location);
    const auto pointing = childOf(driver, class_name::kPointingDevice);
    ASSERT_NE(pointing, 0U);
    const auto properties = registry.properties(pointing);
    ASSERT_TRUE(properties.has_value());
    EXPECT_EQ(static_cast<std::uint32_t>(properties->longInteger(property::kLocationID)), location);

    const auto parameters = hidParameters(driver);
    ASSERT_NE(parameters.find(property::kHidClickTime), nullptr);
    EXPECT_NE(parameters.find(property::kHidClickTime)->get<std::int64_t>(), nullptr) << "nanoseconds";
    ASSERT_NE(parameters.array(property::kHidClickSpace), nullptr);
    EXPECT_EQ(parameters.array(property::kHidClickSpace)->size(), 2U);
    EXPECT_TRUE(registry.childrenOf(pointing).empty());
  }
}

TEST_P(RegistryContract, TakesAnEmptyDictionaryAsASignOfLifeAndChangesNothing) {
  const auto driver = published(kHere);
  const auto before = registry.properties(driver);
  for (const char* name : {property::kCalibration, property::kConfigration})
    EXPECT_EQ(registry.setProperty(driver, name, Dictionary()), kSuccess) << name;
  EXPECT_EQ(registry.properties(driver), before);
}

TEST_P(RegistryContract, ChangesOnlyTheKeysThatAreSent) {
  const auto driver = published(kHere);
  auto expected = group(driver, property::kConfigration);
  const Dictionary changes[] = {
      {{configration_key::kMode, 3}},
      {{configration_key::kEnableTouch, false}},
      {{configration_key::kRightClickTime, 750}, {configration_key::kSmoothness, 4}}};
  for (const auto& change : changes) {
    EXPECT_EQ(registry.setProperty(driver, property::kConfigration, change), kSuccess);
    for (const auto& [key, value] : change) expected.set(key, value);
    const auto told = group(driver, property::kConfigration);
    EXPECT_EQ(told.size(), expected.size());
    for (const auto& [key, value] : expected)
      EXPECT_TRUE(told.find(key) != nullptr && *told.find(key) == value) << key;
  }
}

TEST_P(RegistryContract, KeepsACalibrationByteForByteAndItsTouchArea) {
  const auto driver = published(kHere);
  Bytes params(116);
  const float identity = 1.0F;
  // Coefficient A10 of X and A01 of Y, and reserve bytes, which travel with them unchanged.
  std::copy_n(reinterpret_cast<const std::uint8_t*>(&identity), sizeof identity, params.begin() + 32);
  std::copy_n(reinterpret_cast<const std::uint8_t*>(&identity), sizeof identity, params.begin() + 58 + 28);
  params[57] = 0xA5;
  params[115] = 0x5A;
  const Dictionary saved{{calibration_key::kCalibrateStatus, true},
                         {calibration_key::kCalibParams, params},
                         {calibration_key::kMinX, 0},
                         {calibration_key::kMinY, 0},
                         {calibration_key::kMaxX, kLogicalMaximum},
                         {calibration_key::kMaxY, kLogicalMaximum}};
  EXPECT_EQ(registry.setProperty(driver, property::kCalibration, saved), kSuccess);
  const auto told = group(driver, property::kCalibration);
  for (const auto& [key, value] : saved)
    EXPECT_TRUE(told.find(key) != nullptr && *told.find(key) == value) << key;
}

TEST_P(RegistryContract, RefusesWhatIsNoMessageAndChangesNothing) {
  const auto driver = published(kHere);
  const auto before = registry.properties(driver);
  struct Case {
    const char* name;
    const char* property;
    Value value;
  };
  const Case refused[] = {
      {"no such property", "configuration", Dictionary{{"mode", 1}}},
      {"not a dictionary", property::kConfigration, 1},
      {"wrong type", property::kConfigration, Dictionary{{configration_key::kMode, "two"}}},
      {"one good key before a bad one", property::kConfigration,
       Dictionary{{configration_key::kClickRange, 9}, {configration_key::kMode, Bytes{1}}}},
      {"out of range", property::kConfigration,
       Dictionary{{configration_key::kMode, std::numeric_limits<std::int32_t>::max()}}},
      {"parameters of another size", property::kCalibration,
       Dictionary{{calibration_key::kCalibParams, Bytes(115)}}},
  };
  for (const auto& write : refused) {
    const auto status = registry.setProperty(driver, write.property, write.value);
    EXPECT_NE(status, kSuccess) << write.name;
    EXPECT_NE(status, kErrorNoDevice) << write.name << ": it is still there";
    EXPECT_EQ(registry.properties(driver), before) << write.name;
  }
}

TEST_P(RegistryContract, PublishesEachCapturedTouchWithItsTarget) {
  const auto driver = published(kHere);
  auto capture = [&](Dictionary message) {
    EXPECT_EQ(registry.setProperty(driver, property::kCalibration, message), kSuccess);
  };
  auto expectCapture = [&](RegistryWorld::RawPoint raw, std::int32_t target) {
    const auto told = group(driver, property::kCalibration);
    EXPECT_EQ(told.integer(calibration_key::kX), raw.x);
    EXPECT_EQ(told.integer(calibration_key::kY), raw.y);
    EXPECT_EQ(told.integer(calibration_key::kPointId), target);
  };
  capture({{calibration_key::kStatCalibrate, true}});
  expectCapture(world->touch(kHere), 0);
  const auto second = world->touch(kHere);
  expectCapture(second, 1);
  capture({{calibration_key::kPointId, 7}});
  expectCapture(world->touch(kHere), 7);
  capture({{calibration_key::kStatCalibrate, false}});
  const auto before = group(driver, property::kCalibration);
  world->touch(kHere);
  EXPECT_EQ(group(driver, property::kCalibration), before) << "nothing is captured any more";
}

TEST_P(RegistryContract, KeepsTouchscreensApart) {
  const auto here = published(kHere);
  const auto there = published(kThere);
  const auto before = registry.properties(there);
  registry.setProperty(here, property::kConfigration, Dictionary{{configration_key::kClickRange, 9}});
  registry.setProperty(here, property::kCalibration, Dictionary{{calibration_key::kStatCalibrate, true}});
  world->touch(kHere);
  EXPECT_EQ(registry.properties(there), before);
}

TEST_P(RegistryContract, TellsTheDoubleClickThatWasWritten) {
  const auto driver = published(kHere);
  const auto hid = childOf(driver, class_name::kHidSystem);
  EXPECT_EQ(registry.setProperty(hid, property::kHidClickTime, 700'000'000), kSuccess);
  EXPECT_EQ(registry.setProperty(hid, property::kHidClickSpace, Array{6, 6}), kSuccess);
  const auto parameters = hidParameters(driver);
  EXPECT_EQ(parameters.longInteger(property::kHidClickTime), 700'000'000);
  ASSERT_NE(parameters.array(property::kHidClickSpace), nullptr);
  EXPECT_EQ(parameters.array(property::kHidClickSpace)->front().integer(), 6);

  EXPECT_NE(registry.setProperty(hid, property::kHidClickTime, "soon"), kSuccess);
  EXPECT_NE(registry.setProperty(hid, property::kHidClickSpace, Array{}), kSuccess);
  EXPECT_EQ(hidParameters(driver), parameters);
}

TEST_P(RegistryContract, FindsNothingBehindAHandleThatIsGone) {
  const auto driver = published(kHere);
  const auto other = published(kThere);
  const auto children = registry.childrenOf(driver);
  world->withdraw(kHere);
  EXPECT_EQ(drivers(), std::vector{other});
  EXPECT_TRUE(registry.childrenOf(driver).empty());
  for (const auto object : {driver, children[0], children[1], RegistryObject{0}, ~RegistryObject{0}}) {
    EXPECT_EQ(registry.properties(object), std::nullopt);
    EXPECT_FALSE(registry.conformsTo(object, class_name::kTouchDriver));
    EXPECT_EQ(registry.setProperty(object, property::kCalibration, Dictionary()), kErrorNoDevice);
  }
}

TEST_P(RegistryContract, NeverGivesAHandleToAnotherObject) {
  const auto first = published(kHere);
  world->withdraw(kHere);
  const auto second = published(kHere);
  EXPECT_NE(second, 0U);
  EXPECT_NE(second, first);
  EXPECT_EQ(registry.setProperty(first, property::kCalibration, Dictionary()), kErrorNoDevice);
  EXPECT_EQ(registry.setProperty(second, property::kCalibration, Dictionary()), kSuccess);
}

}  // namespace touchpanel::testing

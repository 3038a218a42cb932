// The registry port over a real bus: the driver service on one side, the control panel's provider on the
// other.
#include <gtest/gtest.h>
#include <sdbus-c++/sdbus-c++.h>

#include "ServedDrivers.h"
#include "contract/DriverProperties.h"
#include "contract/ProductId.h"
#include "providers/linux/dbus/BusNames.h"
#include "providers/linux/dbus/DriverServiceClient.h"
#include "support/PrivateBus.h"

namespace touchpanel::testing {
namespace {

using driver::DriverService;

constexpr std::uint32_t kHere = 0x80110000;  // the sign bit must not matter

void plug(DriverService& service) {
  service.touchscreenArrived("/sys/usb1", {kHere, kProductConfigurationOnly});
}

class DriverServiceClientTest : public ::testing::Test {
 protected:
  DriverServiceClientTest() { serve(); }
  void serve() {
    served.reset();
    served = std::make_unique<ServedDrivers>();
  }
  void plugIn() { served->with(plug); }
  RegistryObject find() {
    const auto found = registry.instancesOf(class_name::kTouchDriver);
    return found.empty() ? 0 : found[0];
  }

  PrivateBus bus;
  std::unique_ptr<ServedDrivers> served;
  RecordingDiagnostics diagnostics;
  DriverServiceClient registry{diagnostics, Bus::Session, bus_name::kDevelopmentService};
};

TEST_F(DriverServiceClientTest, CarriesEveryKindOfValueBothWays) {
  plugIn();
  const auto object = find();
  const Bytes params(116, 0x41);
  EXPECT_EQ(
      registry.setProperty(object, "calibration",
                           Dictionary{{"calibrateStatus", true}, {"calibParams", params}, {"maxX", 32000}}),
      kSuccess);
  EXPECT_EQ(registry.setProperty(object, "configration", Dictionary{{"smoothness", 4}}), kSuccess);
  const auto hid = registry.childrenOf(object).at(1);
  EXPECT_EQ(registry.setProperty(hid, "HIDClickTime", 300'000'000), kSuccess);
  EXPECT_EQ(registry.setProperty(hid, "HIDClickSpace", Array{7, 7}), kSuccess);

  const auto properties = registry.properties(object);
  ASSERT_TRUE(properties);
  const auto* calibration = properties->dictionary("calibration");
  EXPECT_EQ(*calibration->find("calibrateStatus")->get<bool>(), true);
  EXPECT_EQ(*calibration->find("maxX")->get<std::int32_t>(), 32000);
  EXPECT_EQ(*calibration->bytes("calibParams"), params);
  EXPECT_EQ(properties->dictionary("configration")->integer("smoothness"), 4);
  const auto system = registry.properties(hid);
  ASSERT_TRUE(system);
  const auto* parameters = system->dictionary("HIDParameters");
  EXPECT_EQ(*parameters->find("HIDClickTime")->get<std::int64_t>(), 300'000'000);
  EXPECT_EQ(*parameters->array("HIDClickSpace"), (Array{7, 7}));
  const auto pointing = registry.childrenOf(object).at(0);
  EXPECT_EQ(*registry.properties(pointing)->find("LocationID")->get<std::int64_t>(), std::int64_t{kHere});
}

TEST_F(DriverServiceClientTest, FindsNothingAndSaysNothingWhereThereIsNoService) {
  served.reset();
  EXPECT_TRUE(registry.instancesOf(class_name::kTouchDriver).empty());
  bus.stop();
  EXPECT_TRUE(registry.instancesOf(class_name::kTouchDriver).empty());
  EXPECT_EQ(registry.setProperty(1, "calibration", Dictionary{}), kErrorNoDevice);
}

TEST_F(DriverServiceClientTest, TakesOldHandlesForDeadAfterTheServiceRestarted) {
  plugIn();
  const auto before = find();
  ASSERT_EQ(registry.setProperty(before, "calibration", Dictionary{}), kSuccess);
  serve();
  plugIn();
  EXPECT_EQ(registry.setProperty(before, "calibration", Dictionary{}), kErrorNoDevice)
      << "the new run's object has the same path";
  EXPECT_FALSE(registry.properties(before));
  const auto after = find();
  EXPECT_NE(after, before);
  EXPECT_EQ(registry.setProperty(after, "calibration", Dictionary{}), kSuccess);
}

TEST_F(DriverServiceClientTest, OutlivesTheBusItself) {
  plugIn();
  const auto before = find();
  bus.stop();
  EXPECT_NE(registry.setProperty(before, "calibration", Dictionary{}), kSuccess);
  EXPECT_EQ(find(), 0U);
  bus.start();
  ASSERT_TRUE(served->connectAgain());
  EXPECT_EQ(registry.setProperty(before, "calibration", Dictionary{}), kErrorNoDevice)
      << "the new bus gives out the same client names again";
  EXPECT_EQ(registry.setProperty(find(), "calibration", Dictionary{}), kSuccess);
}

TEST_F(DriverServiceClientTest, TellsOnceWhenTheServiceCannotBeServedAndServesLater) {
  served.reset();
  bus.stop();
  serve();
  EXPECT_FALSE(served->connectAgain());
  EXPECT_EQ(served->diagnostics.lines.size(), 1U);
  plugIn();
  bus.start();
  EXPECT_TRUE(served->connectAgain());
  EXPECT_EQ(served->diagnostics.lines.size(), 2U);
  EXPECT_NE(find(), 0U);
}

TEST_F(DriverServiceClientTest, WaitsOnlySoLongForAServiceThatHangs) {
  plugIn();
  DriverServiceClient impatient(diagnostics, Bus::Session, bus_name::kDevelopmentService,
                                std::chrono::milliseconds(50));
  const auto object = impatient.instancesOf(class_name::kTouchDriver).at(0);
  const auto held = served->hang();
  EXPECT_EQ(impatient.setProperty(object, "calibration", Dictionary{}), kErrorTimeout);
  EXPECT_TRUE(impatient.instancesOf(class_name::kTouchDriver).empty());
  EXPECT_EQ(diagnostics.lines.size(), 1U);
}

TEST_F(DriverServiceClientTest, EndsTheCaptureOfAClientThatVanishes) {
  plugIn();
  {
    DriverServiceClient dying(diagnostics, Bus::Session, bus_name::kDevelopmentService);
    const auto object = dying.instancesOf(class_name::kTouchDriver).at(0);
    ASSERT_EQ(dying.setProperty(object, "calibration", Dictionary{{"statCalibrate", true}}), kSuccess);
  }
  const auto object = find();
  bool capturing = true;
  for (int reads = 0; reads < 1000 && capturing; ++reads)
    capturing = registry.properties(object)->dictionary("calibration")->boolean("statCalibrate");
  EXPECT_FALSE(capturing);
}

/// A client that speaks the bus directly, as one of another make or version would.
class ForeignClient : public DriverServiceClientTest {
 protected:
  template <typename... Arguments>
  std::string errorOf(const std::string& path, const char* interface, const char* method,
                      Arguments... arguments) {
    auto connection = sdbus::createSessionBusConnection();
    auto proxy = sdbus::createProxy(*connection, bus_name::kDevelopmentService, path);
    try {
      proxy->callMethod(method).onInterface(interface).withArguments(arguments...);
    } catch (const sdbus::Error& error) {
      return error.getName();
    }
    return "";
  }
  template <typename Type>
  std::string errorOfSetting(const char* name, const Type& value) {
    return errorOf(std::string(bus_name::kObjectsPath) + "/256", "com.VARNEXO.TouchDriver1.Object",
                   "SetProperty", std::string(name), sdbus::Variant(value));
  }
};

TEST_F(ForeignClient, OfAnotherVersionIsToldSo) {
  EXPECT_EQ(errorOf(bus_name::kRootPath, "com.VARNEXO.TouchDriver1.Registry", "InstancesOf", std::uint32_t{2},
                    std::string(class_name::kTouchDriver)),
            bus_name::kInterfaceVersionError);
}

TEST_F(ForeignClient, IsRefusedByNameWhateverItSends) {
  plugIn();
  using Settings = std::map<std::string, sdbus::Variant>;
  const auto bad = bus_name::kBadArgumentError;
  EXPECT_EQ(errorOfSetting("configration", std::uint32_t{3}), bad);
  EXPECT_EQ(errorOfSetting("configration", Settings{{"mode", sdbus::Variant(std::uint32_t{1})}}), bad);
  EXPECT_EQ(errorOfSetting("configration", Settings{{"mode", sdbus::Variant(sdbus::make_struct(1, 2))}}),
            bad);
  EXPECT_EQ(errorOfSetting("configration", std::map<std::string, std::int32_t>{{"mode", 1}}), bad);
  EXPECT_EQ(errorOfSetting("configration", std::vector<std::int32_t>{1, 2}), bad);
  EXPECT_EQ(errorOfSetting("calibration",
                           Settings{{"calibParams", sdbus::Variant(std::vector<std::uint8_t>(115))}}),
            bad);
  EXPECT_EQ(errorOfSetting("colour", Settings{}), bus_name::kUnsupportedError);
  EXPECT_EQ(errorOfSetting("configration", Settings{{"mode", sdbus::Variant(1)}}), "");
  EXPECT_EQ(registry.properties(find())->dictionary("configration")->integer("mode"), 1);
}

}  // namespace
}  // namespace touchpanel::testing

#include <gmock/gmock.h>

#include "DiscoveryRig.h"
#include "discovery/DeviceConfigLoading.h"

namespace touchpanel {
namespace {

using testing::DiscoveryRig;
using testing::FakeRegistry;

struct LoadingADevice : ::testing::Test {
  DiscoveryRig rig;
  _DEVICT_CONTEXT context{};
  RegistryObject driver = rig.registry.addDriver(0x10);

  /// The entry that a device of `productId` gets.
  Dictionary load(std::uint16_t productId) {
    auto& touchscreen = rig.make(0x14100000, productId);
    touchscreen.device.ownReference = 77;
    rig.discovery.configLoading().LoadDeviceConfig(context, touchscreen.device, driver, 0x94100000);
    return rig.owner.list.empty() ? Dictionary() : *rig.owner.list.back();
  }
  void addHidSystem(RegistryObject below, Dictionary parameters) {
    lastHidSystem = rig.registry.add("IOHIDSystem", below, {{"HIDParameters", std::move(parameters)}});
  }
  RegistryObject lastHidSystem = 0;
};

template <std::size_t size>
void put(char (&field)[size], std::string_view text) {
  std::fill_n(field, size, '\0');
  std::copy_n(text.begin(), std::min(text.size(), size), field);
}

TEST_F(LoadingADevice, FillsTheEntryInOrder) {
  put(context.BarCode, "SN-1");
  put(context.FirmwareVer, "1.2");
  context.DeviceConfig.CalibrateStatus = 2;
  context.DeviceConfig.MonitorID = 9;
  rig.files.files[rig.paths.driverConfig] = {{"TouchSensitivityArea", 12},
                                             {"TouchSensitivityTime", 11},
                                             {"EnableTouchSensitivity", false},
                                             {"RightClickArea", 9},
                                             {"RightClickTime", 8},
                                             {"EnableRightClick", true},
                                             {"CalibrateType", 6},
                                             {"CalibrateMode", 25},
                                             {"Smoothness", 4},
                                             {"ClickRange", false},
                                             {"EnableTouch", true},
                                             {"TouchMode", 0},
                                             {"AddedByHand", 1}};
  addHidSystem(driver, {{"HIDClickTime", std::int64_t{500'000'000}}, {"HIDClickSpace", Array{4, 6}}});
  const auto image = imageOf(context);
  EXPECT_EQ(load(kProductInfrared0086), (Dictionary{{"CalibrateStatus", "YES"},
                                                    {"SN", "SN-1"},
                                                    {"FirmwareVersion", "1.2"},
                                                    {"MonitorID", 0},
                                                    {"TouchMode", 0},
                                                    {"EnableTouch", true},
                                                    {"ClickRange", false},
                                                    {"Smoothness", 4},
                                                    {"CalibrateMode", 25},
                                                    {"CalibrateType", 6},
                                                    {"EnableRightClick", true},
                                                    {"RightClickTime", 8},
                                                    {"RightClickArea", 9},
                                                    {"EnableTouchSensitivity", false},
                                                    {"TouchSensitivityTime", 11},
                                                    {"TouchSensitivityArea", 12},
                                                    {"Handle", static_cast<std::int32_t>(driver)},
                                                    {"DeviceInterface", 77},
                                                    {"LocationID", static_cast<std::int32_t>(0x94100000)},
                                                    {"VendorID", 0x6666},
                                                    {"ProductID", 0x0086},
                                                    {"DeviceContext", Bytes(image.begin(), image.end())},
                                                    {"DoubleClickTime", 500},
                                                    {"DoubleClickArea", 4},
                                                    {"Hiddevice", std::int64_t{lastHidSystem}}}));
  EXPECT_EQ(rig.owner.settings, rig.files.files[rig.paths.driverConfig]) << "with the key added by hand";
  EXPECT_EQ(rig.journal.back(), "reload");
}

TEST_F(LoadingADevice, NamesItByBarCodeOrKindAndCutsTextsAtTheirField) {
  const std::string full(40, 'x');
  struct Case {
    std::uint16_t productId;
    std::string barCode;
    std::string name;
  };
  for (const auto& expected : {Case{3104, "", "Optical Touchscreen"}, Case{128, "", "Infrared Touchscreen"},
                               Case{1, "", "Infrared Touchscreen"}, Case{0x99, "", "Infrared Touchscreen"},
                               Case{3104, "A1", "A1"}, Case{1, full, full}}) {
    put(context.BarCode, expected.barCode);
    EXPECT_EQ(load(expected.productId).text("SN"), expected.name) << expected.productId;
  }
  EXPECT_EQ(load(128).text("FirmwareVersion"), "---");
  put(context.FirmwareVer, full);
  EXPECT_EQ(load(128).text("FirmwareVersion"), std::string(20, 'x')) << "nothing of the bar code behind it";
}

TEST_F(LoadingADevice, CompletesOnlyTheConfigurationOnlyKindFromItsFile) {
  context.CalibParams.X.A10 = 3.5F;
  context.DeviceConfig.CalibrateStatus = 1;
  auto loaded = [this](std::uint16_t productId) {
    const auto before = context;
    const auto entry = load(productId);
    context = before;
    return entry;
  };
  auto entry = loaded(kProductConfigurationOnly);
  EXPECT_EQ(entry.text("CalibrateStatus"), "NO");
  EXPECT_EQ(contextOf(entry).CalibParams.X.A10, 0.0F) << "the defaults are zeros";

  Bytes params(116, 0x11);
  params.resize(120, 0x22);
  auto& file = rig.files.files[rig.paths.deviceConfig];
  file = {{"CalibrateStatus", true}, {"CalibParams", params}};
  entry = loaded(kProductConfigurationOnly);
  EXPECT_EQ(entry.text("CalibrateStatus"), "YES");
  const auto image = *entry.bytes("DeviceContext");
  EXPECT_EQ(image.size(), 293U);
  EXPECT_EQ(Bytes(image.begin() + 116, image.begin() + 232), Bytes(116, 0x11));
  EXPECT_EQ(image[232], 0) << "bytes beyond the block are not taken";
  EXPECT_EQ(contextOf(loaded(kProductOptical)).CalibParams.X.A10, 3.5F);

  file = {{"CalibParams", Bytes(4, 0x11)}};
  entry = loaded(kProductConfigurationOnly);
  EXPECT_EQ(entry.text("CalibrateStatus"), "NO") << "an absent status is no";
  EXPECT_EQ(contextOf(entry).CalibParams.X.A10, 3.5F) << "short data leaves the rest";
  file = {{"CalibrateStatus", 1}, {"CalibParams", "text"}};
  EXPECT_EQ(contextOf(loaded(kProductConfigurationOnly)).CalibParams.X.A10, 3.5F);
}

TEST_F(LoadingADevice, StartsEveryDeviceWithTheSettingsOfTheFile) {
  load(kProductOptical);
  rig.owner.list.front()->set("TouchMode", 3);
  EXPECT_EQ(load(kProductOptical).integer("TouchMode"), 2);
}

TEST_F(LoadingADevice, ReadsDoubleClickValuesAsFarAsThereAreAny) {
  struct Case {
    const char* name;
    Dictionary parameters;
    std::optional<std::int32_t> time;
    std::optional<std::int32_t> area;
  };
  for (const auto& expected :
       {Case{"both", {{"HIDClickTime", std::int64_t{2'999'999}}, {"HIDClickSpace", Array{5, 5}}}, 2, 5},
        Case{"negative time", {{"HIDClickTime", std::int64_t{-1'999'999}}}, -1, {}},
        Case{"time only", {{"HIDClickTime", 7'000'000}}, 7, {}},
        Case{"empty space", {{"HIDClickSpace", Array{}}}, {}, {}},
        Case{"odd types", {{"HIDClickTime", "soon"}, {"HIDClickSpace", 4}}, {}, {}},
        Case{"none", {}, {}, {}}}) {
    SCOPED_TRACE(expected.name);
    rig.registry.remove(lastHidSystem);
    addHidSystem(driver, expected.parameters);
    const auto entry = load(kProductOptical);
    EXPECT_EQ(entry.contains("DoubleClickTime"), expected.time.has_value());
    EXPECT_EQ(entry.integer("DoubleClickTime"), expected.time.value_or(0));
    EXPECT_EQ(entry.contains("DoubleClickArea"), expected.area.has_value());
    EXPECT_EQ(entry.integer("DoubleClickArea"), expected.area.value_or(0));
    EXPECT_EQ(registryObjectOf(entry, "Hiddevice"), lastHidSystem);
  }
}

TEST_F(LoadingADevice, LeavesDoubleClickOutWithoutAReadableHidSystem) {
  const auto withoutHid = load(kProductOptical);
  rig.registry.objects[rig.registry.add("IOHIDSystem", driver)].properties = {{"Other", 1}};
  const auto withoutParameters = load(kProductOptical);
  rig.registry.objects.rbegin()->second.properties.reset();
  const auto unreadable = load(kProductOptical);
  for (const auto& entry : {withoutHid, withoutParameters, unreadable})
    for (const char* key : {"DoubleClickTime", "DoubleClickArea", "Hiddevice"})
      EXPECT_FALSE(entry.contains(key)) << key;
}

TEST_F(LoadingADevice, TakesTheLastReadableInstanceAndCarriesAnEarlierOneForward) {
  addHidSystem(driver, {{"HIDClickTime", std::int64_t{100'000'000}}});
  const auto second = rig.registry.addDriver(0x20);
  addHidSystem(second, {{"HIDClickTime", std::int64_t{200'000'000}}});
  const auto wanted = lastHidSystem;
  rig.registry.addDriver(0x30);  // has no HID system below it
  const auto entry = load(kProductOptical);
  EXPECT_EQ(entry.integer("DoubleClickTime"), 200);
  EXPECT_EQ(registryObjectOf(entry, "Hiddevice"), wanted);
}

}  // namespace
}  // namespace touchpanel

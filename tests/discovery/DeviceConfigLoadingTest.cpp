#include "DiscoveryRig.h"
#include "discovery/ContextStore.h"
#include "discovery/DeviceConfigLoading.h"

namespace touchpanel::testing {
namespace {

struct LoadingADevice : ::testing::Test, DiscoveryRig {
  _DEVICT_CONTEXT context{};
  RegistryObject driver = registry.addDriver(0x10);

  /// The entry that a device of `productId` gets. The context stays as it is.
  Dictionary load(std::uint16_t productId) {
    auto& device = make(0x14100000, productId).device;
    device.ownReference = 77;
    auto completed = context;
    discovery.configLoading().LoadDeviceConfig(completed, device, driver, 0x94100000);
    return owner.list.empty() ? Dictionary() : *owner.list.back();
  }
  RegistryObject addHidSystem(RegistryObject below, std::int64_t clickTime) {
    return registry.add("IOHIDSystem", below, {{"HIDParameters", Dictionary{{"HIDClickTime", clickTime}}}});
  }
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
  const auto image = imageOf(context);
  auto& file = files.files[paths.driverConfig];
  file = {{"AddedByHand", 1}};
  for (int i = kSettingsInFile.size(); i > 0; --i) file.set(kSettingsInFile.at(i - 1U).key, 100 + i);
  const auto hidSystem = registry.add(
      "IOHIDSystem", driver,
      {{"HIDParameters",
        Dictionary{{"HIDClickTime", std::int64_t{500'000'000}}, {"HIDClickSpace", Array{4, 6}}}}});

  Dictionary expected{
      {"CalibrateStatus", "YES"}, {"SN", "SN-1"}, {"FirmwareVersion", "1.2"}, {"MonitorID", 0}};
  int number = 100;
  for (const auto& setting : kSettingsInFile) expected.set(setting.key, ++number);
  const Dictionary rest{{"Handle", static_cast<std::int32_t>(driver)},
                        {"DeviceInterface", 77},
                        {"LocationID", static_cast<std::int32_t>(0x94100000)},
                        {"VendorID", 0x6666},
                        {"ProductID", 0x0086},
                        {"DeviceContext", Bytes(image.begin(), image.end())},
                        {"DoubleClickTime", 500},
                        {"DoubleClickArea", 4},
                        {"Hiddevice", std::int64_t{hidSystem}}};
  for (const auto& [key, value] : rest) expected.set(key, value);
  EXPECT_EQ(load(kProductInfrared0086), expected);
  EXPECT_EQ(owner.settings, file) << "with the key added by hand";
  EXPECT_EQ(journal.back(), "reload");
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
  auto entry = load(kProductConfigurationOnly);
  EXPECT_EQ(entry.text("CalibrateStatus"), "NO");
  EXPECT_EQ(contextOf(entry).CalibParams.X.A10, 0.0F) << "the defaults are zeros";

  Bytes params(116, 0x11);
  params.resize(120, 0x22);
  auto& file = files.files[paths.deviceConfig];
  file = {{"CalibrateStatus", true}, {"CalibParams", params}};
  entry = load(kProductConfigurationOnly);
  EXPECT_EQ(entry.text("CalibrateStatus"), "YES");
  const auto image = *entry.bytes("DeviceContext");
  EXPECT_EQ(image.size(), 293U);
  EXPECT_EQ(Bytes(image.begin() + 116, image.begin() + 232), Bytes(116, 0x11));
  EXPECT_EQ(image[232], 0) << "bytes beyond the block are not taken";
  EXPECT_EQ(contextOf(load(kProductOptical)).CalibParams.X.A10, 3.5F);

  file = {{"CalibParams", Bytes(4, 0x11)}};
  entry = load(kProductConfigurationOnly);
  EXPECT_EQ(entry.text("CalibrateStatus"), "NO") << "an absent status is no";
  EXPECT_EQ(contextOf(entry).CalibParams.X.A10, 3.5F) << "short data leaves the rest";
  file = {{"CalibrateStatus", 1}, {"CalibParams", "text"}};
  EXPECT_EQ(contextOf(load(kProductConfigurationOnly)).CalibParams.X.A10, 3.5F);
}

TEST_F(LoadingADevice, StartsEveryDeviceWithTheSettingsOfTheFile) {
  load(kProductOptical);
  owner.list.front()->set("TouchMode", 3);
  EXPECT_EQ(load(kProductOptical).integer("TouchMode"), 2);
}

TEST_F(LoadingADevice, ReadsDoubleClickValuesAsFarAsThereAreAny) {
  EXPECT_FALSE(load(kProductOptical).contains("Hiddevice")) << "there is no HID system";
  const auto hidSystem = registry.add("IOHIDSystem", driver);
  const auto with = [](Dictionary parameters) {
    return std::optional(Dictionary{{"HIDParameters", std::move(parameters)}});
  };
  struct Case {
    const char* name;
    std::optional<Dictionary> properties;
    std::optional<std::int32_t> time;
    std::optional<std::int32_t> area;
  };
  for (const auto& expected :
       {Case{"both", with({{"HIDClickTime", std::int64_t{2'999'999}}, {"HIDClickSpace", Array{5, 5}}}), 2, 5},
        Case{"negative time", with({{"HIDClickTime", std::int64_t{-1'999'999}}}), -1, {}},
        Case{"time only", with({{"HIDClickTime", 7'000'000}}), 7, {}},
        Case{"empty space", with({{"HIDClickSpace", Array{}}}), {}, {}},
        Case{"odd types", with({{"HIDClickTime", "soon"}, {"HIDClickSpace", 4}}), {}, {}},
        Case{"none", with({}), {}, {}}, Case{"no parameters", Dictionary{{"Other", 1}}, {}, {}},
        Case{"unreadable", std::nullopt, {}, {}}}) {
    SCOPED_TRACE(expected.name);
    registry.objects[hidSystem].properties = expected.properties;
    const auto entry = load(kProductOptical);
    EXPECT_EQ(entry.contains("DoubleClickTime"), expected.time.has_value());
    EXPECT_EQ(entry.integer("DoubleClickTime"), expected.time.value_or(0));
    EXPECT_EQ(entry.contains("DoubleClickArea"), expected.area.has_value());
    EXPECT_EQ(entry.integer("DoubleClickArea"), expected.area.value_or(0));
    const bool isRead = expected.properties && expected.properties->contains("HIDParameters");
    EXPECT_EQ(registryObjectOf(entry, "Hiddevice"), isRead ? hidSystem : 0U);
  }
}

TEST_F(LoadingADevice, TakesTheLastReadableInstanceAndCarriesAnEarlierOneForward) {
  addHidSystem(driver, 100'000'000);
  const auto wanted = addHidSystem(registry.addDriver(0x20), 200'000'000);
  registry.addDriver(0x30);  // has no HID system below it
  const auto entry = load(kProductOptical);
  EXPECT_EQ(entry.integer("DoubleClickTime"), 200);
  EXPECT_EQ(registryObjectOf(entry, "Hiddevice"), wanted);
}

TEST_F(LoadingADevice, StoresAContextUnderANoticeUnlessInterfaceOrKindIsUnknown) {
  ContextStore store{usb, files, paths, {clock, diagnostics}, waitNotice};
  auto& device = make(0x10, kProductInfrared0080).device;
  usb.add(device);
  bool shown = false;
  device.onOpen = [&] {
    shown = waitNotice.isShown;
    return kSuccess;
  };
  using Kind = WriteOutcome::Kind;
  EXPECT_EQ(store.save(kProductInfrared0080, device.ownReference + 1, context).kind, Kind::NotWritten);
  EXPECT_EQ(store.save(0x0088, device.ownReference, context).kind, Kind::NotWritten) << "no such product";
  EXPECT_TRUE(device.calls.empty() && waitNotice.messages.empty());
  EXPECT_EQ(store.save(kProductInfrared0080, device.ownReference, context), WriteOutcome{});
  EXPECT_TRUE(shown);
  EXPECT_FALSE(waitNotice.isShown);
}

}  // namespace
}  // namespace touchpanel::testing

#include "discovery/DeviceConfigLoading.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "contract/DriverProperties.h"
#include "contract/ProductId.h"
#include "discovery/Pairing.h"

namespace touchpanel {

namespace {

constexpr char kNoFirmwareVersion[] = "---";
constexpr std::int64_t kNanosecondsPerMillisecond = 1'000'000;
constexpr int kAnyFlag = 1;

/// A device's text ends at its first NUL, or with its field.
template <std::size_t size>
std::string textOf(const char (&field)[size]) {
  const std::string_view whole(field, size);
  return std::string(whole.substr(0, whole.find('\0')));
}

std::string nameOf(const _DEVICT_CONTEXT& context, std::uint16_t productId) {
  if (auto barCode = textOf(context.BarCode); !barCode.empty()) return barCode;
  return productId == kProductOptical ? kind_name::kOptical : kind_name::kInfrared;
}

std::string firmwareVersionOf(const _DEVICT_CONTEXT& context) {
  auto version = textOf(context.FirmwareVer);
  return version.empty() ? kNoFirmwareVersion : version;
}

void addHidParameters(const Dictionary& parameters, RegistryObject hidSystem, Dictionary& entry) {
  const Value* time = parameters.find(property::kHidClickTime);
  if (time != nullptr && time->isNumber())
    entry.set(entry_key::kDoubleClickTime,
              static_cast<std::int32_t>(time->longInteger() / kNanosecondsPerMillisecond));
  const Array* space = parameters.array(property::kHidClickSpace);
  if (space != nullptr && !space->empty()) entry.set(entry_key::kDoubleClickArea, space->front().integer());
  entry.set(entry_key::kHiddevice, std::int64_t{hidSystem});
}

/// What identifies a touchscreen beside its context.
struct DeviceIdentity {
  RegistryObject handle = 0;  ///< its driver instance
  UsbDeviceReference deviceInterface = 0;
  std::uint32_t locationId = 0;
  std::uint16_t vendorId = 0;
  std::uint16_t productId = 0;
};

/// The entry without the double-click keys. Throws AbsentValue at the first setting that `settings` lacks.
Dictionary buildDeviceEntry(const _DEVICT_CONTEXT& context, const Dictionary& settings,
                            const DeviceIdentity& identity) {
  Dictionary entry;
  entry.set(entry_key::kCalibrateStatus,
            context.DeviceConfig.CalibrateStatus != 0 ? entry_key::kYes : entry_key::kNo);
  entry.set(entry_key::kSN, nameOf(context, identity.productId));
  entry.set(entry_key::kFirmwareVersion, firmwareVersionOf(context));
  entry.set(entry_key::kMonitorID, 0);
  for (const auto& setting : kSettingsInFile) entry.set(setting.key, settings.find(setting.key));
  entry.set(entry_key::kHandle, static_cast<std::int32_t>(identity.handle));
  entry.set(entry_key::kDeviceInterface, identity.deviceInterface);
  entry.set(entry_key::kLocationID, static_cast<std::int32_t>(identity.locationId));
  entry.set(entry_key::kVendorID, std::int32_t{identity.vendorId});
  entry.set(entry_key::kProductID, std::int32_t{identity.productId});
  storeContext(entry, context);
  return entry;
}

/// The key, in quotes, of the first setting that `settings` lacks.
std::string firstLacking(const Dictionary& settings) {
  for (const auto& setting : kSettingsInFile)
    if (!settings.contains(setting.key)) return '"' + std::string(setting.key) + '"';
  return {};
}

/// Adds what can be read of the HID systems below the driver's instances; the last readable one wins.
void addDoubleClick(Registry& registry, Dictionary& entry) {
  // Not reset between instances: one that has no HID system below it shares that of the one before.
  RegistryObject hidSystem = 0;
  for (const auto instance : registry.instancesOf(class_name::kTouchDriver)) {
    scan(registry, instance, kAnyFlag, hidSystem, class_name::kHidSystem);
    if (hidSystem == 0) continue;
    const auto properties = registry.properties(hidSystem);
    const auto* parameters = properties ? properties->dictionary(property::kHidParameters) : nullptr;
    if (parameters != nullptr) addHidParameters(*parameters, hidSystem, entry);
  }
}

}  // namespace

DeviceConfigLoading::DeviceConfigLoading(Registry& registry, PropertyListFiles& files,
                                         const ConfigPaths& paths, Diagnostics& diagnostics,
                                         DeviceListOwner& owner)
    : registry_(registry),
      dataSet_(files, paths),
      settingsFile_(paths.driverConfig),
      diagnostics_(diagnostics),
      owner_(owner) {}

void DeviceConfigLoading::LoadDeviceConfig(_DEVICT_CONTEXT& context, UsbDeviceInterface& device,
                                           RegistryObject handle, std::uint32_t locationId) {
  bool isUnreadable = false;
  owner_.drvConfigDict() = dataSet_.loadedDriverConfig(&isUnreadable);
  DeviceIdentity identity{.handle = handle, .deviceInterface = device.reference(), .locationId = locationId};
  device.getDeviceVendor(identity.vendorId);
  device.getDeviceProduct(identity.productId);
  if (identity.productId == kProductConfigurationOnly) completeFromFile(context);

  try {
    auto entry = std::make_shared<Dictionary>(buildDeviceEntry(context, owner_.drvConfigDict(), identity));
    addDoubleClick(registry_, *entry);
    owner_.deviceListArray().push_back(std::move(entry));
  } catch (const AbsentValue& error) {
    diagnostics_.line("driver configuration file: " + std::string(error.what()) +
                      ", the touchscreen is not listed");
    owner_.notListed({.why = NotListed::Why::SettingLacking,
                      .detail = firstLacking(owner_.drvConfigDict()) + " (" + settingsFile_ + ")"});
    return;
  }
  owner_.reloadDeviceTable();
  if (isUnreadable) owner_.settingsUnreadable();
}

void DeviceConfigLoading::completeFromFile(_DEVICT_CONTEXT& context) const {
  const auto file = dataSet_.loadedDeviceConfig();
  context.DeviceConfig.CalibrateStatus = file.boolean(device_config_key::kCalibrateStatus) ? 1 : 0;
  if (const auto* params = file.bytes(device_config_key::kCalibParams))
    copyImage(*params, context.CalibParams);
}

}  // namespace touchpanel

#include "discovery/DeviceConfigLoading.h"

#include <memory>
#include <string>
#include <utility>

#include "contract/ProductId.h"
#include "discovery/DeviceEntryBuilder.h"

namespace touchpanel {

DeviceConfigLoading::DeviceConfigLoading(Registry& registry, PropertyListFiles& files,
                                         const ConfigPaths& paths, Diagnostics& diagnostics,
                                         DeviceListOwner& owner)
    : registry_(registry), dataSet_(files, paths), diagnostics_(diagnostics), owner_(owner) {}

void DeviceConfigLoading::LoadDeviceConfig(_DEVICT_CONTEXT& context, UsbDeviceInterface& device,
                                           RegistryObject handle, std::uint32_t locationId) {
  owner_.drvConfigDict() = dataSet_.loadedDriverConfig();
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
    return;
  }
  owner_.reloadDeviceTable();
}

void DeviceConfigLoading::completeFromFile(_DEVICT_CONTEXT& context) const {
  const auto file = dataSet_.loadedDeviceConfig();
  context.DeviceConfig.CalibrateStatus = file.boolean(device_config_key::kCalibrateStatus) ? 1 : 0;
  if (const auto* params = file.bytes(device_config_key::kCalibParams))
    copyImage(*params, context.CalibParams);
}

}  // namespace touchpanel

#include "config/DataSet.h"

#include <utility>

#include "contract/TouchSettings.h"

namespace touchpanel {

namespace {

Dictionary defaultDriverConfig() {
  Dictionary config;
  for (const auto& setting : kSettingsInFile) config.set(setting.key, valueOf(TouchSettings(), setting));
  config.set(settings_key::kClickRange, false);  // a boolean in every file of the field; readers take it as 0
  return config;
}

Dictionary defaultDeviceConfig() {
  return {{device_config_key::kCalibrateStatus, false},
          {device_config_key::kCalibParams, Bytes(kCalibParamsSize)}};
}

}  // namespace

ConfigPaths ConfigPaths::in(const std::string& directory) {
  return {.driverConfig = directory + "/com.VARNEXO.Driver.Config.plist",
          .deviceConfig = directory + "/com.VARNEXO.Device.Config.plist"};
}

DataSet::DataSet(PropertyListFiles& files, ConfigPaths paths) : files_(files), paths_(std::move(paths)) {}

Dictionary DataSet::loadedDriverConfig(bool* isUnreadable) const {
  Status status = kSuccess;
  auto file = files_.read(paths_.driverConfig, status);
  if (isUnreadable != nullptr) *isUnreadable = !file && status != kErrorNotFound;
  return file ? std::move(*file) : defaultDriverConfig();
}

Dictionary DataSet::loadedDeviceConfig() const {
  auto file = files_.read(paths_.deviceConfig);
  return file ? std::move(*file) : defaultDeviceConfig();
}

Status writeDriverConfig(PropertyListFiles& files, const ConfigPaths& paths, const Dictionary& entry) {
  Dictionary contents;
  try {
    for (const auto& setting : kSettingsInFile) contents.set(setting.key, entry.find(setting.key));
  } catch (const AbsentValue&) {
    return kErrorBadArgument;
  }
  return files.writeAtomically(paths.driverConfig, contents);
}

Status writeDeviceConfig(PropertyListFiles& files, const ConfigPaths& paths, const _DEVICT_CONTEXT& context) {
  const auto params = imageOf(context.CalibParams);
  return files.writeAtomically(
      paths.deviceConfig, {{device_config_key::kCalibrateStatus, context.DeviceConfig.CalibrateStatus != 0},
                           {device_config_key::kCalibParams, Bytes(params.begin(), params.end())}});
}

}  // namespace touchpanel

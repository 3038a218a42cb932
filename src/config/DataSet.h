#pragma once

#include <string>

#include "platform/PropertyListFiles.h"
#include "protocol/DeviceContext.h"

namespace touchpanel {

/// Paths of the two property-list files. Their directory is never created.
struct ConfigPaths {
  std::string driverConfig;
  std::string deviceConfig;
  static ConfigPaths in(const std::string& directory);
};

/// Keys of the device configuration file.
namespace device_config_key {
inline constexpr char kCalibrateStatus[] = "CalibrateStatus";  ///< bool
inline constexpr char kCalibParams[] = "CalibParams";          ///< 116 bytes
}  // namespace device_config_key

/// Loads the two configuration files. A file that cannot be read at all gives the defaults; a file that can
/// be read is returned exactly as it is, with nothing added or converted.
class DataSet {
 public:
  DataSet(PropertyListFiles& files, ConfigPaths paths);

  /// `isUnreadable`, where given, becomes true when there is a file and the defaults stand in for it.
  Dictionary loadedDriverConfig(bool* isUnreadable = nullptr) const;
  Dictionary loadedDeviceConfig() const;

 private:
  PropertyListFiles& files_;
  ConfigPaths paths_;
};

/// Writes the twelve settings of `entry` to the driver configuration file. A missing key abandons the save
/// before any file is touched, with kErrorBadArgument; other errors are those of the write.
Status writeDriverConfig(PropertyListFiles& files, const ConfigPaths& paths, const Dictionary& entry);

/// Writes calibration status and parameters of `context` to the device configuration file. Errors are those of
/// the write.
Status writeDeviceConfig(PropertyListFiles& files, const ConfigPaths& paths, const _DEVICT_CONTEXT& context);

}  // namespace touchpanel

#include "touchdriverd/PanelFiles.h"

#include <algorithm>
#include <limits>

#include "contract/TouchSettings.h"

namespace touchpanel::driver {

namespace {
bool isSettings(const Dictionary& contents) {
  return std::ranges::all_of(kSettingsInFile, [&](const TouchSetting& setting) {
    const auto* value = contents.find(setting.key);
    if (value == nullptr || !value->isNumber()) return false;
    const auto most = setting.maximum > 0 ? setting.maximum : std::numeric_limits<std::int32_t>::max();
    return value->longInteger() >= 0 && value->longInteger() <= most;
  });
}
}  // namespace

void PanelFiles::write(const std::string& name, const Dictionary& contents, FileWorker::Done done) {
  const auto path = directory_ + "/" + name;
  if (path == paths_.driverConfig) return writeSettings(contents, std::move(done));
  if (path == paths_.deviceConfig) return writeCalibration(contents, std::move(done));
  done(kErrorUnsupported);
}

void PanelFiles::writeSettings(const Dictionary& contents, FileWorker::Done done) {
  if (!isSettings(contents)) return done(kErrorBadArgument);
  worker_.post(
      [&files = files_, paths = paths_, contents] { return writeDriverConfig(files, paths, contents); },
      std::move(done));
}

void PanelFiles::writeCalibration(const Dictionary& contents, FileWorker::Done done) {
  const auto* status = contents.find(device_config_key::kCalibrateStatus);
  const auto* params = contents.bytes(device_config_key::kCalibParams);
  if (!status || !status->get<bool>() || !params || params->size() != kCalibParamsSize)
    return done(kErrorBadArgument);
  _DEVICT_CONTEXT context{};
  context.DeviceConfig.CalibrateStatus = status->boolean();
  copyImage(*params, context.CalibParams);
  worker_.post(
      [&files = files_, paths = paths_, context] { return writeDeviceConfig(files, paths, context); },
      std::move(done));
}

}  // namespace touchpanel::driver

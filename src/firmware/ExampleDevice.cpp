#include <array>
#include <cstdio>

#include "firmware/Firmware.h"

namespace touchpanel::firmware {
namespace {

constexpr std::uint16_t kFullRange = 32767;
constexpr std::uint16_t kWidth = 1920;
constexpr std::uint16_t kHeight = 1080;

_ScrProps screenProps() {
  _ScrProps props{};
  props.pos = 1;
  props.width = kWidth;
  props.height = kHeight;
  props.fps = 60;
  props.maxSpeed = 4000;
  props.veloctiyWeighing = 0.5F;
  return props;
}

_TUC_DEVICE_CONFIG deviceConfig(std::uint32_t serial) {
  _TUC_DEVICE_CONFIG config{};
  config.DeviceID = static_cast<std::uint8_t>(serial);
  config.DefaultTouchArea = {0, 0, kFullRange, kFullRange};
  config.ResolutionX = config.PrimaryResolutionX = kWidth;
  config.ResolutionY = config.PrimaryResolutionY = kHeight;
  return config;
}

/// Polynomials that leave every point where it is.
_CALIB_PARAMS identity() {
  _CALIB_PARAMS params{};
  params.X.A10 = 1;
  params.Y.A01 = 1;
  return params;
}

std::vector<std::uint8_t> barCodeText(std::uint32_t serial) {
  std::array<char, kBarCodeTextSize> text{};
  const int length = std::snprintf(text.data(), text.size(), "IR-2026-%07u", serial);
  return {text.begin(), text.begin() + length};
}

/// Fields that a panel shows as A26B11C-D1E-01-0000-0000001, ending in `serial`.
std::vector<std::uint8_t> barCodeFields(std::uint32_t serial) {
  std::vector<std::uint8_t> fields = {'A', 26, 'B', 11, 'C', 'D', 1, 'E', 1, 0, 0, 0, 0};
  for (int byte = 0; byte < 4; ++byte) fields.push_back(static_cast<std::uint8_t>(serial >> (8 * byte)));
  fields.resize(kBarCodeFieldsSize);
  return fields;
}

}  // namespace

DeviceDescription exampleDevice(DeviceKind kind, std::uint32_t serial) {
  DeviceDescription device;
  device.screenProps = screenProps();
  device.deviceConfig = deviceConfig(serial);
  device.calibParams = identity();
  switch (kind) {
    case DeviceKind::Infrared:
      device.productId = kProductInfrared0080;
      device.barCode = barCodeText(serial);
      return device;
    case DeviceKind::Optical:
      device.productId = kProductOptical;
      device.version = {1, 3, 7, 0};
      device.barCode = barCodeFields(serial);
      return device;
    default:
      // It has no parameter exchange: nothing that it holds can be asked for.
      DeviceDescription bare;
      bare.productId = kProductConfigurationOnly;
      bare.version.clear();
      return bare;
  }
}

}  // namespace touchpanel::firmware

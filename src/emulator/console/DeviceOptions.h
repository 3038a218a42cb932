#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "firmware/Firmware.h"
#include "firmware/TouchSurface.h"

namespace touchpanel::emulator {

/// Everything about a touchscreen that the "plug" command can choose.
struct DeviceOptions {
  firmware::DeviceDescription description;
  firmware::Distortion distortion;  ///< by default one that a calibration visibly removes
  std::uint32_t seed = 1;
  std::optional<int> port = {};
};

/// Understands a kind ("infrared", "optical", "configuration-only") and words of the form OPTION=VALUE:
/// product, serial, seed, port, offset=X,Y scale=X,Y skew=X,Y barrel, noise. Throws WordError.
DeviceOptions deviceOptions(std::string_view kind, std::span<const std::string> words);

/// The fault of that name. Throws WordError with all names when there is none.
firmware::Fault faultNamed(std::string_view name);

}  // namespace touchpanel::emulator

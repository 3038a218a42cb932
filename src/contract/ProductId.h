#pragma once

#include <array>
#include <cstdint>

namespace touchpanel {

inline constexpr std::uint16_t kProductConfigurationOnly = 0x0001;
inline constexpr std::uint16_t kProductOptical = 0x0C20;
inline constexpr std::uint16_t kProductInfrared0080 = 0x0080;
inline constexpr std::uint16_t kProductInfrared0085 = 0x0085;
inline constexpr std::uint16_t kProductInfrared0086 = 0x0086;
inline constexpr std::uint16_t kProductInfrared0087 = 0x0087;

/// The supported product ids in the order in which devices are registered for, which is the order in which
/// devices present at start-up are listed.
inline constexpr std::array<std::uint16_t, 6> kProductIds = {kProductConfigurationOnly, kProductOptical,
                                                             kProductInfrared0080,      kProductInfrared0085,
                                                             kProductInfrared0086,      kProductInfrared0087};

enum class DeviceKind { ConfigurationOnly, Optical, Infrared, Unknown };

/// The kind of a touchscreen is decided by its product id alone.
constexpr DeviceKind kindOf(std::int32_t productId) {
  switch (productId) {
    case kProductConfigurationOnly:
      return DeviceKind::ConfigurationOnly;
    case kProductOptical:
      return DeviceKind::Optical;
    case kProductInfrared0080:
    case kProductInfrared0085:
    case kProductInfrared0086:
    case kProductInfrared0087:
      return DeviceKind::Infrared;
    default:
      return DeviceKind::Unknown;
  }
}

}  // namespace touchpanel

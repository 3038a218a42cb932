#pragma once

#include <cstdint>

/// The names of the touch driver service, its objects and its errors on D-Bus.
namespace touchpanel::bus_name {

inline constexpr char kService[] = "com.VARNEXO.TouchDriver1";
/// The name for trying out and testing, on a session bus.
inline constexpr char kDevelopmentService[] = "com.VARNEXO.TouchDriver1.Development";
inline constexpr char kRootPath[] = "/com/VARNEXO/TouchDriver1";
/// Followed by a slash and the object's number.
inline constexpr char kObjectsPath[] = "/com/VARNEXO/TouchDriver1/objects";

inline constexpr std::uint32_t kInterfaceVersion = 1;

inline constexpr char kInterfaceVersionError[] = "com.VARNEXO.TouchDriver1.Error.InterfaceVersion";
inline constexpr char kBadArgumentError[] = "com.VARNEXO.TouchDriver1.Error.BadArgument";
inline constexpr char kUnsupportedError[] = "com.VARNEXO.TouchDriver1.Error.Unsupported";
inline constexpr char kNoDeviceError[] = "com.VARNEXO.TouchDriver1.Error.NoDevice";
inline constexpr char kNotPermittedError[] = "com.VARNEXO.TouchDriver1.Error.NotPermitted";
inline constexpr char kNotFoundError[] = "com.VARNEXO.TouchDriver1.Error.NotFound";
inline constexpr char kBusyError[] = "com.VARNEXO.TouchDriver1.Error.Busy";
inline constexpr char kNotSavedError[] = "com.VARNEXO.TouchDriver1.Error.NotSaved";
inline constexpr char kFailedError[] = "com.VARNEXO.TouchDriver1.Error.Failed";

}  // namespace touchpanel::bus_name

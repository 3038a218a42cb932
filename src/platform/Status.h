#pragma once

#include <cstdint>

namespace touchpanel {

/// Result of a platform operation: 0 for success, anything else an error code. Providers translate the codes
/// of their libraries into these once; the logic only prints them (as eight hexadecimal digits) or compares
/// with 0.
using Status = std::int32_t;

inline constexpr Status kSuccess = 0;
inline constexpr Status kErrorGeneral = static_cast<Status>(0xE0000001U);
inline constexpr Status kErrorNoDevice = static_cast<Status>(0xE0000002U);
inline constexpr Status kErrorNotPermitted = static_cast<Status>(0xE0000003U);
inline constexpr Status kErrorExclusiveAccess = static_cast<Status>(0xE0000004U);
inline constexpr Status kErrorTimeout = static_cast<Status>(0xE0000005U);
inline constexpr Status kErrorStalled = static_cast<Status>(0xE0000006U);
inline constexpr Status kErrorNotFound = static_cast<Status>(0xE0000007U);
inline constexpr Status kErrorBadArgument = static_cast<Status>(0xE0000008U);
inline constexpr Status kErrorNoMemory = static_cast<Status>(0xE0000009U);
inline constexpr Status kErrorNotOpen = static_cast<Status>(0xE000000AU);
inline constexpr Status kErrorUnsupported = static_cast<Status>(0xE000000BU);
inline constexpr Status kErrorInputOutput = static_cast<Status>(0xE000000CU);
/// What serves an object does not answer; the object may well be there.
inline constexpr Status kErrorNotResponding = static_cast<Status>(0xE000000DU);
inline constexpr Status kErrorNoSpace = static_cast<Status>(0xE000000EU);
/// In use just now, and free again by itself.
inline constexpr Status kErrorBusy = static_cast<Status>(0xE000000FU);

}  // namespace touchpanel

#pragma once

#include <optional>

#include "history/CalibrationRecord.h"
#include "platform/Value.h"

namespace touchpanel {

/// The limits of what is taken from a file that anyone may have edited.
inline constexpr std::int32_t kMaximumTargets = 25;

/// Keys of one record in a history file.
namespace record_key {
inline constexpr char kTime[] = "Time";        ///< seconds since 1970, UTC
inline constexpr char kEvent[] = "Event";      ///< "found", "replaced", "accepted", "reset", "restored"
inline constexpr char kWritten[] = "Written";  ///< "yes", "partly", "no", "unknown"
inline constexpr char kDeviceContext[] = "DeviceContext";  ///< 293 bytes
// The rest is there only when the errors of the fit are known.
inline constexpr char kTargets[] = "Targets";
inline constexpr char kMeanPixels[] = "MeanPixels", kLargestPixels[] = "LargestPixels";
inline constexpr char kMeanMillimetres[] = "MeanMillimetres", kLargestMillimetres[] = "LargestMillimetres";
inline constexpr char kWidth[] = "Width", kHeight[] = "Height";  ///< of the screen, in points
inline constexpr char kTouches[] = "Touches";  ///< four float32 each: x and y of the target, x and y landed
}  // namespace record_key

Dictionary encodedRecord(const CalibrationRecord& record);

/// Nothing for anything that is not a whole and sensible record: a context of another size, coefficients in
/// force that are not finite, errors that no screen has, more touches than targets.
std::optional<CalibrationRecord> decodedRecord(const Value& value);

}  // namespace touchpanel

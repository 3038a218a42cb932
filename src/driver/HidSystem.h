#pragma once

#include <chrono>
#include <cstdint>
#include <string_view>

#include "platform/Status.h"
#include "platform/Value.h"

namespace touchpanel::driver {

/// The system's double-click settings, one for the whole machine, as the "IOHIDSystem" object shows them.
class HidSystem {
 public:
  /// Takes "HIDClickTime", an integer of nanoseconds, 0..60 s, or "HIDClickSpace", an array of two integers
  /// of 0..1000 area units, horizontal and vertical. Another type, size or range: kErrorBadArgument; another
  /// name: kErrorUnsupported. Nothing is changed then.
  Status setProperty(std::string_view name, const Value& value);
  /// "HIDParameters" with both values, the time as a 64-bit integer.
  Dictionary properties() const;

  std::chrono::milliseconds clickTime() const {
    return std::chrono::duration_cast<std::chrono::milliseconds>(clickTime_);
  }
  /// The horizontal click space: how far to each side of the first tap a second one may land, in area units.
  std::int32_t clickArea() const { return clickSpaceX_; }

  bool operator==(const HidSystem&) const = default;

 private:
  std::chrono::nanoseconds clickTime_ = std::chrono::milliseconds(500);
  std::int32_t clickSpaceX_ = 5;
  std::int32_t clickSpaceY_ = 5;
};

}  // namespace touchpanel::driver

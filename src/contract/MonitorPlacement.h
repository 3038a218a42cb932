#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "contract/DriverProperties.h"

namespace touchpanel {

/// Keys of the "monitor" dictionary, which is written and read. The upper half is the user's choice, the lower
/// one what the session knows of the monitor that is there.
namespace monitor_key {
inline constexpr char kIdentity[] = "identity";  ///< text: maker, model and serial number, or the connector
inline constexpr char kName[] = "name";          ///< text, for people
inline constexpr char kMinX[] = "minX";          ///< int32 like all below: the part that pointers cover
inline constexpr char kMinY[] = "minY";
inline constexpr char kMaxX[] = "maxX";
inline constexpr char kMaxY[] = "maxY";
inline constexpr char kTurn[] = "turn";
inline constexpr char kTouchMinX[] = "touchMinX";  ///< the part that the touch device of mode 3 covers
inline constexpr char kTouchMinY[] = "touchMinY";
inline constexpr char kTouchMaxX[] = "touchMaxX";
inline constexpr char kTouchMaxY[] = "touchMaxY";
inline constexpr char kTouchTurn[] = "touchTurn";
inline constexpr char kWidthMm[] = "widthMm";
inline constexpr char kHeightMm[] = "heightMm";
}  // namespace monitor_key

namespace monitor_limit {
inline constexpr std::int32_t kMaximumTurn = 3;
inline constexpr std::int32_t kMaximumSizeMm = 20000;
inline constexpr std::int32_t kMaximumTextBytes = 255;
}  // namespace monitor_limit

/// A part of the desktop and how the picture lies in it. The desktop is 0..32767 on both axes, y downwards,
/// bounds included: a desktop that is W pixels wide shows v at pixel v * W / 32768.
struct DesktopPart {
  std::int32_t minX = 0;  ///< below maxX, as minY is below maxY
  std::int32_t minY = 0;
  std::int32_t maxX = kLogicalMaximum;
  std::int32_t maxY = kLogicalMaximum;
  std::int32_t turn = 0;  ///< 0..3 quarter turns clockwise of the picture, see inTurnedPicture()
  bool operator==(const DesktopPart&) const = default;
};

/// Where the place (x, y) of an unturned glass lies in a picture that is turned by `turn` quarter turns
/// clockwise (1: its top is at the right). Both are 0..maximum on each axis, y downwards. 4 - turn leads back.
///
///     turn    0      1          2              3
///     place   x, y   y, M - x   M - x, M - y   M - y, x      with M = maximum
template <typename Number>
constexpr std::pair<Number, Number> inTurnedPicture(Number x, Number y, Number maximum, std::int32_t turn) {
  switch (turn) {
    case 1:
      return {y, maximum - x};
    case 2:
      return {maximum - x, maximum - y};
    case 3:
      return {maximum - y, x};
    default:
      return {x, y};
  }
}

/// The monitor that a touchscreen lies on, as its driver instance knows it.
struct MonitorPlacement {
  std::string identity;  ///< of the chosen monitor; empty: none chosen, the primary one then
  std::string name;
  DesktopPart pointer;       ///< of the pointer: modes 0 to 2 and calibrations
  DesktopPart touch;         ///< of mode 3's touch device: the whole where the compositor maps it itself
  std::int32_t widthMm = 0;  ///< 0..20000, of the unturned monitor; 0: unknown
  std::int32_t heightMm = 0;
  bool operator==(const MonitorPlacement&) const = default;
};

}  // namespace touchpanel

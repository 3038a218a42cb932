#include "discovery/NotListed.h"

#include "platform/Translatable.h"

namespace touchpanel {

std::string_view adviceOnOpening(Status status) {
  switch (status) {
    case kErrorNotPermitted:
      return TRANSLATABLE_TEXT("Alert",
                               "You are not permitted to use touchscreens. Ask whoever looks after this "
                               "machine for access.");
    case kErrorExclusiveAccess:
      return TRANSLATABLE_TEXT(
          "Alert",
          "Another program is using it. Close that program, then plug the touchscreen in "
          "again.");
    case kErrorNoDevice:
      return TRANSLATABLE_TEXT("Alert", "It was unplugged. Plug it in again.");
    default:
      return TRANSLATABLE_TEXT("Alert", "Unplug the touchscreen and plug it in again.");
  }
}

std::string_view adviceOnDriver(Status status) {
  switch (status) {
    case kSuccess:
      return TRANSLATABLE_TEXT(
          "Alert",
          "The touch driver service runs, but there is no touchscreen that it serves. Plug "
          "one in, then start this program again.");
    case kErrorNotPermitted:
      return TRANSLATABLE_TEXT(
          "Alert",
          "You are not permitted to use the touch driver service. Ask whoever looks after "
          "this machine for access.");
    case kErrorUnsupported:
      return TRANSLATABLE_TEXT(
          "Alert",
          "The touch driver service is of another version than this program. Install both "
          "in the same version.");
    default:
      return TRANSLATABLE_TEXT(
          "Alert",
          "The touch driver service does not run or does not answer. Start it, then start "
          "this program again.");
  }
}

std::string_view adviceOnReading() { return adviceOnOpening(kErrorGeneral); }

}  // namespace touchpanel

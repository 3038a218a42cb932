#include "touchdriverd/BusErrors.h"

#include <algorithm>
#include <array>

#include "platform/HexText.h"
#include "providers/linux/dbus/BusNames.h"

namespace touchpanel::driver {

namespace {
constexpr char kLimitsExceeded[] = "org.freedesktop.DBus.Error.LimitsExceeded";

std::string quoted(const std::string& name) { return "\"" + name + "\""; }

sdbus::Error badArgument(const std::string& name) {
  return sdbus::Error(
      bus_name::kBadArgumentError,
      quoted(name) + " was refused: a type, size, range or key is wrong. Nothing is changed.");
}
}  // namespace

bool isInForce(Status status) {
  constexpr std::array kNotSaved = {kErrorNoSpace, kErrorNotPermitted, kErrorInputOutput, kErrorNotFound};
  return status == kSuccess || std::ranges::find(kNotSaved, status) != kNotSaved.end();
}

sdbus::Error errorOfProperty(Status status, const std::string& name) {
  if (isInForce(status))
    return sdbus::Error(bus_name::kNotSavedError,
                        "Property " + quoted(name) + " is in force, but could not be saved (error " +
                            hexText(status) + "): it is lost when the service ends.");
  switch (status) {
    case kErrorBadArgument:
      return badArgument(name);
    case kErrorUnsupported:
      return sdbus::Error(bus_name::kUnsupportedError,
                          "This object has no property " + quoted(name) + " to write.");
    case kErrorNoDevice:
      return sdbus::Error(bus_name::kNoDeviceError, "The touchscreen is gone.");
    case kErrorExclusiveAccess:
      return sdbus::Error(bus_name::kBusyError, "Another program captures touches of this touchscreen.");
    default:
      return sdbus::Error(bus_name::kFailedError, "Property " + quoted(name) + " could not be written.");
  }
}

sdbus::Error errorOfFile(Status status, const std::string& name) {
  switch (status) {
    case kErrorBadArgument:
      return badArgument(name);
    case kErrorUnsupported:
      return sdbus::Error(bus_name::kUnsupportedError, quoted(name) + " is no file of the control panel.");
    case kErrorNoSpace:
      return sdbus::Error(bus_name::kNotSavedError, quoted(name) + " could not be saved: the disk is full.");
    case kErrorNotFound:
      return sdbus::Error(bus_name::kNotFoundError, "There is no folder for " + quoted(name) + ".");
    default:
      return sdbus::Error(bus_name::kFailedError,
                          quoted(name) + " could not be written (error " + hexText(status) + ").");
  }
}

sdbus::Error refusal(Status status) {
  if (status == kErrorNotPermitted)
    return sdbus::Error(bus_name::kNotPermittedError, "You are not permitted to configure touchscreens.");
  return sdbus::Error(kLimitsExceeded, "Too many writes are under way. Nothing is changed.");
}

}  // namespace touchpanel::driver

#include "touchdriverd/OpenReplies.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "platform/HexText.h"
#include "providers/linux/dbus/BusNames.h"

namespace touchpanel::driver {

namespace {
std::string notSaved(const std::string& name, Status status) {
  return "Property \"" + name + "\" is in force, but could not be saved (error " + hexText(status) +
         "): it is lost when the service ends.";
}

bool isInForce(Status status) {
  constexpr std::array kNotSaved = {kErrorNoSpace, kErrorNotPermitted, kErrorInputOutput, kErrorNotFound};
  return status == kSuccess || std::ranges::find(kNotSaved, status) != kNotSaved.end();
}

sdbus::Error errorOf(Status status, const std::string& name) {
  if (isInForce(status)) return sdbus::Error(bus_name::kNotSavedError, notSaved(name, status));
  switch (status) {
    case kErrorBadArgument:
      return sdbus::Error(
          bus_name::kBadArgumentError,
          "Property \"" + name + "\" was refused: a type, size, range or key is wrong. Nothing is changed.");
    case kErrorUnsupported:
      return sdbus::Error(bus_name::kUnsupportedError,
                          "This object has no property \"" + name + "\" to write.");
    case kErrorNoDevice:
      return sdbus::Error(bus_name::kNoDeviceError, "The touchscreen is gone.");
    case kErrorExclusiveAccess:
      return sdbus::Error(bus_name::kBusyError, "Another program captures touches of this touchscreen.");
    default:
      return sdbus::Error(bus_name::kFailedError, "Property \"" + name + "\" could not be written.");
  }
}
}  // namespace

StateStore::Done OpenReplies::answering(sdbus::Result<> result, std::string name,
                                        std::function<void()> taken) {
  open_->push_back(std::move(result));
  return [all = std::weak_ptr(open_), place = std::prev(open_->end()), name = std::move(name),
          taken = std::move(taken)](Status status) {
    const auto open = all.lock();
    if (!open) return;
    const auto reply = std::move(*place);
    open->erase(place);
    try {
      if (taken && isInForce(status)) taken();
      if (status == kSuccess)
        reply.returnResults();
      else
        reply.returnError(errorOf(status, name));
    } catch (const sdbus::Error&) {
      // The connection is lost; whoever waits for its descriptor notices.
    }
  };
}

}  // namespace touchpanel::driver

#pragma once

#include "contract/MonitorPlacement.h"
#include "platform/Status.h"
#include "platform/Value.h"

/// The monitor that a touchscreen lies on as a driver instance keeps it: the "monitor" property.
namespace touchpanel::driver {

/// Takes what `dictionary` holds into `placement`, absent keys staying as they are. kErrorBadArgument, and
/// `placement` unchanged, when any key, type or value is not acceptable, or a part without extent comes of it.
Status write(MonitorPlacement& placement, const Dictionary& dictionary);
/// Takes every acceptable entry and leaves the others out; false when there were others.
bool writeAcceptable(MonitorPlacement& placement, const Dictionary& dictionary);
Dictionary toDictionary(const MonitorPlacement& placement);

}  // namespace touchpanel::driver

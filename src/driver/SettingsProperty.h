#pragma once

#include "contract/TouchSettings.h"
#include "platform/Status.h"

/// The touch behaviour as a driver instance keeps it: the "configration" property.
namespace touchpanel::driver {

/// Takes what `dictionary` holds into `settings`, absent keys staying as they are. kErrorBadArgument, and
/// `settings` unchanged, when any key, type or value is not acceptable.
Status write(TouchSettings& settings, const Dictionary& dictionary);
/// Takes every acceptable entry and leaves the others out; false when there were others.
bool writeAcceptable(TouchSettings& settings, const Dictionary& dictionary);
/// Every setting that has a driver key.
Dictionary toDictionary(const TouchSettings& settings);

}  // namespace touchpanel::driver

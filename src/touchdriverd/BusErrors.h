#pragma once

#include <string>

#include <sdbus-c++/sdbus-c++.h>

#include "platform/Status.h"

namespace touchpanel::driver {

/// Whether a property write that ended with `status` is in force, be it saved or not.
bool isInForce(Status status);
/// What a client is answered whose write of the property `name` ended with `status`, which is not kSuccess.
sdbus::Error errorOfProperty(Status status, const std::string& name);
/// The same of the file `name`, which is as it was.
sdbus::Error errorOfFile(Status status, const std::string& name);
/// What a client is answered that may not write, whatever it is.
sdbus::Error refusal(Status status);

}  // namespace touchpanel::driver

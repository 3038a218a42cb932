#pragma once

#include "platform/Status.h"

namespace touchpanel::files {

/// The status of the file call that failed last, by errno: kErrorNotFound, kErrorNotPermitted, kErrorNoSpace or
/// kErrorInputOutput.
Status statusOfErrno();

}  // namespace touchpanel::files

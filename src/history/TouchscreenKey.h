#pragma once

#include <string>

#include "discovery/DeviceEntry.h"

namespace touchpanel {

/// What a touchscreen is recognised by when it comes back: product id and bar code, or product id and place
/// for one without a bar code, of which there may be several.
///
///     0080-sn-IR12%2f7         product 0x0080, bar code "IR12/7"
///     0c20-at-14100000         product 0x0C20 without a bar code, at location 0x14100000
///
/// Fit to be a file's name: of a bar code's bytes, which may be any, all but letters, digits and "-" are given as
/// "%" and two hexadecimal digits. Taken from the entry's name and not from its device context, since a reset
/// clears the bar code there.
std::string touchscreenKeyOf(const Dictionary& entry);

}  // namespace touchpanel

#pragma once

#include <optional>
#include <string_view>

#include "platform/Value.h"

namespace touchpanel::files {

/// The dictionary at the root of an XML property list in UTF-8 or UTF-16, with or without a byte-order mark, or
/// in a declared ISO-8859-1 or US-ASCII. Nothing when it is not well formed, by the rules of XML or of property
/// lists: an element out of its place, a key without a value or twice in one dictionary, a number that is
/// none. Nothing either for one beyond the limits, and for one that declares entities. What Value does not
/// hold (dates) is checked and left out.
std::optional<Dictionary> decodeXml(std::string_view file);

}  // namespace touchpanel::files

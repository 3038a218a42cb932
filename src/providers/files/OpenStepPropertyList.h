#pragma once

#include <optional>
#include <string_view>

#include "platform/Value.h"

namespace touchpanel::files {

/// The dictionary at the root of a property list in its oldest, textual encoding:
///
///     { TouchMode = 2; EnableTouch = YES; "a key" = "a \"text\""; CalibParams = <0001 02ff>; List = (1, 2); }
///
/// in UTF-8 or UTF-16, the latter with a byte-order mark or recognised by its zero bytes; with /* and //
/// comments. This encoding knows no numbers: text without quotes that is a whole decimal number, YES or NO is
/// taken for what it stands for, as readers of these files want numbers. Nothing for a text that is not well
/// formed, that has a key twice in one dictionary, or that goes beyond the limits.
std::optional<Dictionary> decodeOpenStep(std::string_view file);

}  // namespace touchpanel::files

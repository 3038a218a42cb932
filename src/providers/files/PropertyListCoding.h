#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Value.h"

namespace touchpanel::files {

/// The dictionary at the root of a property list in any of its encodings: XML, binary, or text. Nothing when
/// `file` is anything else, is not well formed, or goes beyond the limits for such files. Integers become int32
/// where they fit and int64 otherwise; values of types that Value does not hold (dates, references) are left
/// out.
std::optional<Dictionary> decodePropertyList(std::string_view file);

/// `contents` as an XML property list, keys in their order.
std::string encodePropertyList(const Dictionary& contents);

}  // namespace touchpanel::files

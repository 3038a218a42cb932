#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace touchpanel::files {

/// `text` as UTF-8 without a byte-order mark. It is read as UTF-16 where a byte-order mark, or a zero among its
/// first two bytes, says so, else as UTF-8. Nothing when it is not valid.
std::optional<std::string> utf8Of(std::string_view text);

}  // namespace touchpanel::files

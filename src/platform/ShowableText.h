#pragma once

#include <string>
#include <string_view>

namespace touchpanel {

/// A text that a device gave, as it may be put beside our own words: what is not UTF-8, control characters,
/// ends of lines and all that turns the direction of writing or has no width becomes U+FFFD. Text without
/// any of these comes back as it is; the bytes that are stored or sent are never changed.
///
/// Markup stays: showing text as text and not as markup is up to the one who draws it.
std::string showableText(std::string_view fromDevice);

}  // namespace touchpanel

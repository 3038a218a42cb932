#pragma once

#include <cstddef>
#include <string_view>

namespace touchpanel::files {

/// No file of ours has more than one level and a dozen values; these leave room for anything added by hand.
inline constexpr std::size_t kMaximumFileSize = 1024 * 1024;
inline constexpr std::size_t kMaximumDepth = 64;
inline constexpr std::size_t kMaximumValues = 10000;

/// Whether a property list, XML or binary, is safe to hand to the decoding library. That library recurses
/// with the nesting, expands every reference of a binary list, and ends the process over a key with a NUL in
/// it; this looks before it leaps, in time linear to the file and the limits. True does not mean that the
/// file is well-formed.
bool isDecodable(std::string_view file);

}  // namespace touchpanel::files

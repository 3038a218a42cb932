#pragma once

#include <cstddef>
#include <string_view>

namespace touchpanel::files {

/// The largest file of ours is a full history of calibrations: three levels, some 300 values and 50 kilobytes.
/// These leave room for anything added by hand. What fits is decoded within a quarter of a second, whatever it is made of.
inline constexpr std::size_t kMaximumFileSize = 1U << 18U;
inline constexpr std::size_t kMaximumDepth = 64;
inline constexpr std::size_t kMaximumValues = 10000;

/// Whether a binary property list is safe to hand to the decoding library. That library recurses with the
/// nesting, expands every reference, and ends the process over a key with a NUL in it; this looks before it
/// leaps, in time linear to the file and the limits. True does not mean that the list is well-formed.
bool isDecodable(std::string_view binary);

}  // namespace touchpanel::files

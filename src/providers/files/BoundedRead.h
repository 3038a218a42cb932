#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "providers/files/FileCalls.h"

namespace touchpanel::files {

/// The contents of the regular file at `path`; nothing when it is missing, unreadable, not a regular file or
/// longer than `limit` bytes. A file that is already too long is not read at all. Never waits for a writer.
std::optional<std::string> readBounded(const std::string& path, std::size_t limit, FileCalls& calls);

}  // namespace touchpanel::files

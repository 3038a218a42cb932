#pragma once

#include <cstddef>
#include <string>

#include "platform/Status.h"
#include "providers/files/FileCalls.h"

namespace touchpanel::files {

/// Reads the regular file at `path` into `contents`. kErrorNotFound, kErrorNotPermitted or kErrorInputOutput as
/// the file calls say; kErrorUnsupported when it is not a regular file or longer than `limit` bytes. A file that
/// is already too long is not read at all. Never waits for a writer.
Status readBounded(const std::string& path, std::size_t limit, FileCalls& calls, std::string& contents);

}  // namespace touchpanel::files

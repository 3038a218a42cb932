#pragma once

#include <string>
#include <string_view>

#include "platform/Status.h"
#include "providers/files/FileCalls.h"

namespace touchpanel::files {

/// Replaces the file at `path` by one that holds `contents`, so that a reader sees the old or the new file
/// and never a mixture, also after a power cut. Keeps who may read and write
/// an existing file, and no other mode bit; a new one gets the permissions of the process's umask. Blocks until the disk has the data. When any step failed the old
/// file, or none, is there, and the temporary file is gone. Only a process killed in the middle can
/// leave one behind, as ".<name>.<process id>.<n>.tmp" in the same directory.
///
/// A step that fails after the new file is in place (syncing the directory) reports success:
/// readers see the new file, and there is no way back.
///
/// Errors: kErrorNotFound without the directory, kErrorNotPermitted, kErrorNoSpace, kErrorInputOutput.
Status replaceAtomically(const std::string& path, std::string_view contents, FileCalls& calls);

}  // namespace touchpanel::files

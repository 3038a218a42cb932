#pragma once

#include <optional>
#include <string>

#include "platform/Status.h"
#include "platform/Value.h"

namespace touchpanel {

/// Property-list files with a dictionary at the root. Blocks for the time of the disk.
class PropertyListFiles {
 public:
  virtual ~PropertyListFiles() = default;

  /// The whole file at `path`, XML or binary. Nothing when it is missing, unreadable, larger than any such
  /// file can sensibly be, not a property list, or has another root. Values of types that Value does not hold
  /// are left out.
  virtual std::optional<Dictionary> read(const std::string& path) = 0;

  /// Writes `contents` as an XML property list so that `path` holds the old or the new version at every
  /// moment, also after a crash. The directory must exist. When it failed the old file is unchanged and
  /// nothing else is left behind: kErrorNotFound without the directory, kErrorNotPermitted, kErrorNoSpace,
  /// kErrorInputOutput.
  virtual Status writeAtomically(const std::string& path, const Dictionary& contents) = 0;
};

}  // namespace touchpanel

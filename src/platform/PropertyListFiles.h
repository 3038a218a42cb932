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

  /// The whole file at `path`, in any encoding of property lists. Values of types that Value does not hold are
  /// left out. When there is nothing, `status` says why: kErrorNotFound when there is no such file, and else
  /// there is one that cannot be read: kErrorNotPermitted, kErrorInputOutput, or kErrorUnsupported for one that
  /// is larger than any such file can sensibly be, not a property list or not a well-formed one, or has no
  /// dictionary at its root.
  virtual std::optional<Dictionary> read(const std::string& path, Status& status) = 0;
  /// The same for those to whom it is all one why there is nothing.
  std::optional<Dictionary> read(const std::string& path) {
    Status ignored = kSuccess;
    return read(path, ignored);
  }

  /// Writes `contents` as an XML property list so that `path` holds the old or the new version at every
  /// moment, also after a crash. The directory must exist. A file that cannot be read is first copied to
  /// "NAME.unreadable" beside it. When it failed the old file is unchanged and nothing else is left behind:
  /// kErrorNotFound without the directory, kErrorNotPermitted, kErrorNoSpace, kErrorInputOutput;
  /// kErrorUnsupported when what is there cannot be kept.
  virtual Status writeAtomically(const std::string& path, const Dictionary& contents) = 0;

  /// Gives the file at `from` the name `to`, in the same directory, and takes away a file of that name. Errors are
  /// those of writing; kErrorNotFound also when there is no such file.
  virtual Status move(const std::string& from, const std::string& to) = 0;
};

}  // namespace touchpanel

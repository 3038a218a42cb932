#pragma once

#include <optional>
#include <string>

#include "platform/Status.h"
#include "providers/files/FileCalls.h"
#include "providers/files/NewFile.h"

namespace touchpanel::files {

/// A copy of a file that nobody could read, made before another one takes its place: "NAME.unreadable", or
/// "NAME.unreadable.2" and so on where there are older ones, which are never touched. It has the permissions of
/// the original, and disappears with this object unless it is kept.
class UnreadableBackup {
 public:
  /// Blocks until the disk has the copy.
  UnreadableBackup(const std::string& path, FileCalls& calls);

  /// Why there is no copy, if there is none: kErrorUnsupported for what is no regular file or too large to be
  /// one of ours by far, else the reason of the file call.
  Status status() const { return status_; }
  void keep() { copy_->keep(); }

 private:
  Status copy(const std::string& path, FileCalls& calls);

  std::optional<NewFile> copy_;
  Status status_;
};

}  // namespace touchpanel::files

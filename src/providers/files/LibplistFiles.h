#pragma once

#include "platform/LibraryInUse.h"
#include "platform/PropertyListFiles.h"
#include "providers/files/FileCalls.h"

namespace touchpanel::files {

/// What the files are coded by: binary and written ones by libplist, which has no call that returns its
/// version, XML ones read by expat.
LibraryInUse libplistInUse();
LibraryInUse expatInUse();

/// Property-list files on disk.
class LibplistFiles final : public PropertyListFiles {
 public:
  LibplistFiles() : LibplistFiles(ownCalls_) {}
  /// With other file calls than the operating system's; not owned.
  explicit LibplistFiles(FileCalls& calls) : calls_(calls) {}
  LibplistFiles(const LibplistFiles&) = delete;
  LibplistFiles& operator=(const LibplistFiles&) = delete;

  using PropertyListFiles::read;
  std::optional<Dictionary> read(const std::string& path, Status& status) override;
  Status writeAtomically(const std::string& path, const Dictionary& contents) override;
  Status move(const std::string& from, const std::string& to) override;

 private:
  FileCalls ownCalls_;
  FileCalls& calls_;
};

}  // namespace touchpanel::files

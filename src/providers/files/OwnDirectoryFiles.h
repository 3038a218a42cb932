#pragma once

#include "platform/PropertyListFiles.h"

namespace touchpanel::files {

/// Decorator: files in a directory that is this program's own, which is made when the first of them is written,
/// with what is missing above it, for nobody but the user.
class OwnDirectoryFiles final : public PropertyListFiles {
 public:
  /// `files` is not owned.
  explicit OwnDirectoryFiles(PropertyListFiles& files) : files_(files) {}

  using PropertyListFiles::read;
  std::optional<Dictionary> read(const std::string& path, Status& status) override {
    return files_.read(path, status);
  }
  Status writeAtomically(const std::string& path, const Dictionary& contents) override;
  Status move(const std::string& from, const std::string& to) override { return files_.move(from, to); }

 private:
  PropertyListFiles& files_;
};

}  // namespace touchpanel::files

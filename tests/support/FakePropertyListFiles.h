#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/PropertyListFiles.h"

namespace touchpanel::testing {

/// Property-list files in memory.
class FakePropertyListFiles final : public PropertyListFiles {
 public:
  using PropertyListFiles::read;
  std::optional<Dictionary> read(const std::string& path, Status& status) override {
    ++reads;
    const auto found = files.find(path);
    status = found == files.end() ? readStatus : kSuccess;
    if (status != kSuccess) return std::nullopt;
    return found->second;
  }
  Status writeAtomically(const std::string& path, const Dictionary& contents) override {
    ++writeAttempts;
    if (writeStatus == kSuccess) files[path] = contents;
    return writeStatus;
  }
  Status move(const std::string& from, const std::string& to) override {
    auto file = files.extract(from);
    if (file.empty()) return kErrorNotFound;
    files[to] = std::move(file.mapped());
    return kSuccess;
  }

  std::map<std::string, Dictionary> files;  ///< readable files by path
  Status readStatus = kErrorNotFound;       ///< of all other files
  Status writeStatus = kSuccess;            ///< of the writes from now on
  int reads = 0;
  int writeAttempts = 0;
};

}  // namespace touchpanel::testing

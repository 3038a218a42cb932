#pragma once

#include "platform/PropertyListFiles.h"
#include "providers/linux/dbus/DriverServiceClient.h"

namespace touchpanel {

/// Decorator: the control panel's two files, written by the driver service where this user may not write them.
class FilesThroughService final : public PropertyListFiles {
 public:
  /// Neither is owned.
  FilesThroughService(PropertyListFiles& files, DriverServiceClient& service)
      : files_(files), service_(service) {}

  using PropertyListFiles::read;
  std::optional<Dictionary> read(const std::string& path, Status& status) override {
    return files_.read(path, status);
  }
  /// What the service says, unless it cannot be asked.
  Status writeAtomically(const std::string& path, const Dictionary& contents) override {
    const auto status = files_.writeAtomically(path, contents);
    if (status != kErrorNotPermitted && status != kErrorNotFound) return status;
    const auto byService = service_.writeFile(path.substr(path.rfind('/') + 1), contents);
    return byService == kErrorNotResponding || byService == kErrorUnsupported ? status : byService;
  }
  Status move(const std::string& from, const std::string& to) override { return files_.move(from, to); }

 private:
  PropertyListFiles& files_;
  DriverServiceClient& service_;
};

}  // namespace touchpanel

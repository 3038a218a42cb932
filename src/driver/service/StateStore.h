#pragma once

#include <string>

#include "driver/HidSystem.h"
#include "platform/OutageReport.h"
#include "platform/PropertyListFiles.h"
#include "platform/TouchscreenIdentity.h"

namespace touchpanel::driver {

/// The settings of the touchscreens in one directory: a property-list file for each location and product, and
/// one for the double-click settings. A save is on disk when the call returns, or the old contents still
/// are.
class StateStore {
 public:
  /// The directory must exist.
  StateStore(PropertyListFiles& files, std::string directory, Diagnostics& diagnostics)
      : files_(files), directory_(std::move(directory)), outage_(diagnostics) {}

  /// Empty when nothing is known.
  Dictionary load(const TouchscreenIdentity& identity);
  void save(const TouchscreenIdentity& identity, const Dictionary& state);
  /// Leaves `hidSystem` as it is where nothing acceptable is known.
  void load(HidSystem& hidSystem);
  void save(const HidSystem& hidSystem);

 private:
  std::string pathOf(const TouchscreenIdentity& identity) const;
  std::string hidSystemPath() const { return directory_ + "/double-click.plist"; }
  void write(const std::string& path, const Dictionary& contents);

  PropertyListFiles& files_;
  std::string directory_;
  OutageReport outage_;
};

}  // namespace touchpanel::driver

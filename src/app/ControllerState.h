#pragma once

#include <memory>

#include "discovery/DeviceEntry.h"
#include "platform/StatusLine.h"
#include "platform/Translatable.h"

namespace touchpanel {

/// The answer to every command that needs a selection.
inline const StatusMessage kNoDeviceSelected{TRANSLATABLE_TEXT("StatusLine", "No touchscreen is selected.")};

/// What the main controller owns and its collaborators work on.
struct ControllerState {
  bool bEnableItems = true;    ///< the main commands may be enabled; false while the settings sheet is up
  bool bFirstLoading = true;   ///< until the table has asked for its first cell
  bool bSaveSettings = false;  ///< what the sheet shows was already saved by Apply
  DeviceListArray deviceListArray;
  /// The selected entry: one of the list, or an empty dictionary while nothing is selected. Never null.
  DeviceEntry currentDict = std::make_shared<Dictionary>();
  Dictionary drvConfigDict;  ///< the driver settings as of the last device's arrival

  bool hasSelection() const { return !currentDict->empty(); }
};

}  // namespace touchpanel

#pragma once

#include <cstdint>

#include "discovery/DeviceEntry.h"
#include "discovery/NotListed.h"
#include "platform/Application.h"
#include "platform/Registry.h"
#include "protocol/Exchange.h"

namespace touchpanel {

/// The part of the main controller that discovery works on.
class DeviceListOwner {
 public:
  virtual ~DeviceListOwner() = default;
  virtual DeviceListArray& deviceListArray() = 0;
  /// The driver settings as of the last arrival; replaced whole by the next one.
  virtual Dictionary& drvConfigDict() = 0;
  /// Has the device table ask for everything again; the settings shown stay as they are.
  virtual void reloadDeviceTable() = 0;
  /// Makes the entry at `row`, which exists, the selection and shows its settings.
  virtual bool shouldSelectRow(std::int32_t row) = 0;

  // What there is to say on the way, for the user.

  virtual void arriving() = 0;  ///< a touchscreen was found and is going to be opened
  virtual void notListed(const NotListed& reason) = 0;
  virtual void readInPart(ContentSet failed) = 0;  ///< of the touchscreen listed last
  virtual void settingsUnreadable() = 0;           ///< the touchscreen listed last got the defaults instead
};

/// Whether an entry of the list is at `locationId`.
bool CheckDevice(const DeviceListArray& list, std::uint32_t locationId);

/// Drops the entries whose driver instance no longer takes a property write. The entry behind a dropped one
/// moves into its place and is not tested before the next removal. While entries remain the first becomes
/// the selection; an empty list ends the application with status 0.
void RemoveDeviceFromArray(DeviceListOwner& owner, Registry& registry, Application& application);

}  // namespace touchpanel

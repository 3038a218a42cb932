#pragma once

#include <optional>
#include <string_view>

#include "platform/Monitors.h"
#include "platform/Registry.h"
#include "platform/Value.h"

namespace touchpanel {

/// The monitor that was chosen as `identity`; the primary one, else the first, when that is empty or not there. Null
/// only on a desktop without monitors. A monitor is also known by its unit or its connector alone: which one makes up
/// its identity changes with its like being plugged in, and with the display server.
const Monitor* monitorFor(const Desktop& desktop, std::string_view identity);

/// What the session says in "monitor" of a touchscreen whose chosen monitor is `identity`: all but the choice itself.
/// The whole desktop, not turned, where nothing is known of it.
Dictionary placementMessage(const Desktop& desktop, std::string_view identity);

/// A touchscreen's "monitor" as its driver instance publishes it; nothing when the instance is gone, does not answer or
/// knows of none.
std::optional<Dictionary> monitorOf(Registry& registry, RegistryObject driver);

/// Has `driver`, whose "monitor" is `published`, know its monitor as it is on `desktop`: writes what differs from
/// placementMessage(), if anything does. Returns what Registry::setProperty() does.
Status place(Registry& registry, RegistryObject driver, const Dictionary& published, const Desktop& desktop);

}  // namespace touchpanel

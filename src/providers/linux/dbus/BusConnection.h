#pragma once

#include <memory>

#include <sdbus-c++/sdbus-c++.h>

namespace touchpanel {

enum class Bus { System, Session };

/// A new connection to `bus`, at the address that the environment gives. Throws sdbus::Error when there
/// is none.
inline std::unique_ptr<sdbus::IConnection> connectTo(Bus bus) {
  return bus == Bus::System ? sdbus::createSystemBusConnection() : sdbus::createSessionBusConnection();
}

}  // namespace touchpanel

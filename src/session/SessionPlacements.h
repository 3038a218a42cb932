#pragma once

#include <map>

#include "platform/Monitors.h"
#include "platform/Registry.h"
#include "platform/TouchOutputs.h"

namespace touchpanel {

/// Keeps every touchscreen of the driver service on its monitor: tells each driver instance which part of the desktop
/// that monitor covers, and the desktop which touch device belongs to it where the desktop does that itself.
///
/// Another session may say something else: what was said once is said again only for a reason of this session's own, so
/// that two of them never answer each other. A session that is refused says nothing more until renew().
class SessionPlacements {
 public:
  SessionPlacements(Registry& registry, Monitors& monitors, TouchOutputs& outputs)
      : registry_(registry), monitors_(monitors), outputs_(outputs) {}

  /// The monitors have changed, the session has become active, or the service has started. Blocks for a registry and a
  /// display server; a service that does not answer is left alone.
  void renew();
  /// A touchscreen has come, or somebody has written to one.
  void follow();

 private:
  void follow(RegistryObject driver);
  void assign(RegistryObject driver, const Dictionary& properties, const Monitor& monitor);

  Registry& registry_;
  Monitors& monitors_;
  TouchOutputs& outputs_;
  Desktop desktop_;
  std::map<RegistryObject, Dictionary> told_;
  bool isRefused_ = false;
};

}  // namespace touchpanel

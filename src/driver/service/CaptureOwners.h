#pragma once

#include <map>
#include <memory>
#include <string>

#include "driver/service/DriverInstance.h"
#include "platform/Timers.h"

namespace touchpanel::driver {

/// Which client captures the touches of which touchscreen. A capture is its client's alone; it ends when the client
/// switches it off or leaves, and after 60 s without a touch.
class CaptureOwners {
 public:
  /// `timers` is not owned.
  explicit CaptureOwners(Timers& timers) : timers_(timers) {}

  bool owns(const std::string& client, DriverInstance& instance) const;
  /// Whether `value` for the property `name` would change a capture that belongs to another client.
  bool refuses(const std::string& client, DriverInstance& instance, std::string_view name,
               const Value& value) const;
  /// `client` has written to `instance`, which must live until it is withdrawn.
  void written(const std::string& client, DriverInstance& instance);
  void withdraw(DriverInstance& instance) { captures_.erase(&instance); }
  void clientLeft(const std::string& client);
  void allClientsLeft();

 private:
  struct Capture {
    std::string client;
    std::unique_ptr<Timer> idle;
  };
  void checkIdle(DriverInstance& instance, std::chrono::microseconds since);

  Timers& timers_;
  std::map<DriverInstance*, Capture> captures_;
};

}  // namespace touchpanel::driver

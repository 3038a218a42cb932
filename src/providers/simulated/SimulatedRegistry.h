#pragma once

#include <chrono>
#include <cstdint>
#include <vector>

#include "platform/Registry.h"
#include "providers/simulated/SimulatedTouchscreen.h"

namespace touchpanel::simulated {

/// The system's double-click settings, one for the whole simulated machine.
struct DoubleClick {
  std::int64_t timeNs = 500'000'000;
  std::int32_t spaceX = 4;
  std::int32_t spaceY = 4;
};

/// The registry of a simulated machine. Each published touchscreen is three objects:
///
///     VARNEXOTouchScreenDriver          properties of the driver instance
///      ├── IOHIDPointingDevice          "LocationID"
///      └── IOHIDSystem                  "HIDParameters"
class SimulatedRegistry final : public Registry {
 public:
  /// Publishes a driver instance for `touchscreen`, which must stay until withdraw().
  RegistryObject publish(SimulatedTouchscreen& touchscreen);
  /// Takes the driver instance and everything below it away.
  void withdraw(SimulatedTouchscreen& touchscreen);

  const DoubleClick& doubleClick() const { return doubleClick_; }

  std::vector<RegistryObject> instancesOf(std::string_view className) override;
  std::vector<RegistryObject> childrenOf(RegistryObject parent) override;
  bool conformsTo(RegistryObject object, std::string_view className) override;
  std::optional<Dictionary> properties(RegistryObject object) override;
  Status setProperty(RegistryObject object, std::string_view name, const Value& value) override;

 private:
  struct Instance {
    RegistryObject driver = 0;
    RegistryObject pointingDevice = 0;
    RegistryObject hidSystem = 0;
    SimulatedTouchscreen* touchscreen = nullptr;
  };

  const Instance* owner(RegistryObject object) const;
  Dictionary hidProperties() const;
  Status setDoubleClick(std::string_view name, const Value& value);
  void tellDoubleClick(driver::TouchDriver& driver) const;

  std::vector<Instance> instances_;
  DoubleClick doubleClick_;
  RegistryObject lastHandle_ = 0x100;  // handles are never given out twice
};

}  // namespace touchpanel::simulated

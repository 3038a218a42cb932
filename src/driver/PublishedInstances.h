#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "driver/HidSystem.h"
#include "platform/Registry.h"

namespace touchpanel::driver {

/// A driver instance as a registry shows it.
class PublishedInstance {
 public:
  virtual ~PublishedInstance() = default;
  /// Where its touchscreen is plugged in.
  virtual std::uint32_t locationId() const = 0;
  virtual Dictionary properties() const = 0;
  virtual Status setProperty(std::string_view name, const Value& value) = 0;
  /// The system's double-click settings, at publishing and whenever they change; area in area units.
  virtual void setDoubleClick(std::chrono::milliseconds time, std::int32_t area) = 0;
};

/// A registry of the driver instances in this process. Each published instance is three objects:
///
///     VARNEXOTouchScreenDriver          properties of the driver instance
///      ├── IOHIDPointingDevice          "LocationID"
///      └── IOHIDSystem                  "HIDParameters", the same for all
class PublishedInstances final : public Registry {
 public:
  /// `hidSystem` is not owned and must live as long.
  explicit PublishedInstances(HidSystem& hidSystem) : hidSystem_(hidSystem) {}

  /// Publishes `instance`, which must live until it is withdrawn, and returns its driver object.
  RegistryObject publish(PublishedInstance& instance);
  /// Takes its three objects away; their handles are never given out again.
  void withdraw(const PublishedInstance& instance);
  /// The objects of `instance`, the driver object first; empty when it is not published.
  std::vector<RegistryObject> objectsOf(const PublishedInstance& instance) const;
  /// Called after each change of the double-click settings.
  void setDoubleClickListener(std::function<void()> listener) { doubleClickListener_ = std::move(listener); }

  std::vector<RegistryObject> instancesOf(std::string_view className) override;
  std::vector<RegistryObject> childrenOf(RegistryObject parent) override;
  bool conformsTo(RegistryObject object, std::string_view className) override;
  std::optional<Dictionary> properties(RegistryObject object) override;
  Status setProperty(RegistryObject object, std::string_view name, const Value& value) override;
  /// The class of `object`; empty when it is gone.
  std::string_view classOf(RegistryObject object) const;

 private:
  struct Entry {
    RegistryObject driver = 0;  ///< the pointing device and the HID system have the next two handles
    PublishedInstance* instance = nullptr;
  };
  const Entry* entryOf(RegistryObject object) const;
  Status setDoubleClick(std::string_view name, const Value& value);

  HidSystem& hidSystem_;
  std::vector<Entry> entries_;
  std::function<void()> doubleClickListener_;
  RegistryObject next_ = 0x100;
};

}  // namespace touchpanel::driver

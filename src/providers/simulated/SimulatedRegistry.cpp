#include "providers/simulated/SimulatedRegistry.h"

#include <algorithm>

namespace touchpanel::simulated {

class SimulatedRegistry::Instance final : public driver::PublishedInstance {
 public:
  explicit Instance(SimulatedTouchscreen& touchscreen) : touchscreen_(touchscreen) {}

  const SimulatedTouchscreen& touchscreen() const { return touchscreen_; }
  std::uint32_t locationId() const override { return touchscreen_.locationId(); }
  Dictionary properties() const override { return touchscreen_.driver().properties(); }
  Status setProperty(std::string_view name, const Value& value) override {
    return touchscreen_.driver().setProperty(name, value);
  }
  void setDoubleClick(std::chrono::milliseconds time, std::int32_t area) override {
    touchscreen_.driver().setDoubleClick(time, area);
  }

 private:
  SimulatedTouchscreen& touchscreen_;
};

SimulatedRegistry::SimulatedRegistry() = default;
SimulatedRegistry::~SimulatedRegistry() = default;

RegistryObject SimulatedRegistry::publish(SimulatedTouchscreen& touchscreen) {
  instances_.push_back(std::make_unique<Instance>(touchscreen));
  return registry_.publish(*instances_.back());
}

void SimulatedRegistry::withdraw(SimulatedTouchscreen& touchscreen) {
  const auto found = std::find_if(instances_.begin(), instances_.end(),
                                  [&](const auto& each) { return &each->touchscreen() == &touchscreen; });
  if (found == instances_.end()) return;
  registry_.withdraw(**found);
  instances_.erase(found);
}

}  // namespace touchpanel::simulated

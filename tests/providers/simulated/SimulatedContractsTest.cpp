#include <algorithm>
#include <chrono>

#include "providers/simulated/SimulatedTouchscreens.h"
#include "support/contracts/RegistryContract.h"
#include "support/contracts/UsbContract.h"

namespace touchpanel::testing {
namespace {

using simulated::SimulatedTouchscreen;
using simulated::SimulatedTouchscreens;

class SimulatedRegistryWorld final : public RegistryWorld {
 public:
  Registry& registry() override { return machine_.registry(); }
  void publish(std::uint32_t locationId) override { machine_.plugIn(at(locationId)); }
  void withdraw(std::uint32_t locationId) override { machine_.unplug(at(locationId)); }
  RawPoint touch(std::uint32_t locationId) override {
    auto& touchscreen = at(locationId);
    const auto raw = touchscreen.touch({0.25, 0.75}, now_ += std::chrono::milliseconds(100));
    touchscreen.release(now_ += std::chrono::milliseconds(100));
    return {raw.x, raw.y};
  }

 private:
  SimulatedTouchscreen& at(std::uint32_t locationId) {
    for (const auto& touchscreen : machine_.all())
      if (touchscreen->locationId() == locationId) return *touchscreen;
    return machine_.add({.name = "touchscreen",
                         .description = firmware::exampleDevice(DeviceKind::Infrared),
                         .distortion = {.offsetX = 0.01, .noise = 3},
                         .locationId = locationId});
  }
  SimulatedTouchscreens machine_;
  std::chrono::microseconds now_{0};
};

class SimulatedUsbWorld final : public UsbWorld {
 public:
  SimulatedUsbWorld() {
    for (auto& model : simulated::exampleTouchscreens()) machine_.add(std::move(model));
  }
  UsbNotifications& notifications() override { return machine_.usb(); }
  UsbServices& services() override { return machine_.usb(); }
  void plugIn(std::uint16_t productId) override { machine_.plugIn(with(productId)); }
  void unplug(std::uint16_t productId) override { machine_.unplug(with(productId)); }
  std::uint32_t locationOf(std::uint16_t productId) override { return with(productId).locationId(); }
  void serve(RunLoopSource& source) override { source.perform(); }
  void beforeNextTransfer(std::uint16_t, std::function<void()> action) override {
    machine_.usb().beforeTransfer = [this, action = std::move(action)](const DeviceRequest&) {
      const auto once = action;
      machine_.usb().beforeTransfer = nullptr;
      once();
    };
  }

 private:
  SimulatedTouchscreen& with(std::uint16_t productId) {
    const auto& all = machine_.all();
    return **std::find_if(all.begin(), all.end(), [&](const auto& t) { return t->productId() == productId; });
  }
  SimulatedTouchscreens machine_;
};

INSTANTIATE_TEST_SUITE_P(Simulated, RegistryContract, ::testing::Values(RegistryProvider{[] {
                           return std::make_unique<SimulatedRegistryWorld>();
                         }}));
INSTANTIATE_TEST_SUITE_P(Simulated, UsbContract, ::testing::Values(UsbProvider{[] {
                           return std::make_unique<SimulatedUsbWorld>();
                         }}));

}  // namespace
}  // namespace touchpanel::testing

#include <algorithm>

#include "providers/simulated/SimulatedTouchscreens.h"
#include "support/contracts/UsbContract.h"

namespace touchpanel::testing {
namespace {

using simulated::SimulatedTouchscreen;
using simulated::SimulatedTouchscreens;

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

INSTANTIATE_TEST_SUITE_P(Simulated, UsbContract, ::testing::Values(UsbProvider{[] {
                           return std::make_unique<SimulatedUsbWorld>();
                         }}));

}  // namespace
}  // namespace touchpanel::testing

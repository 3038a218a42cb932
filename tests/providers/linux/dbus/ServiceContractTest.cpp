// The registry contract, kept by the driver service over a real bus.
#include <gtest/gtest.h>

#include "ServedDrivers.h"
#include "contract/ProductId.h"
#include "providers/linux/dbus/DriverServiceClient.h"
#include "support/PrivateBus.h"
#include "support/contracts/RegistryContract.h"

namespace touchpanel::testing {
namespace {

class ServiceWorld final : public RegistryWorld {
 public:
  Registry& registry() override { return registry_; }
  void publish(std::uint32_t locationId) override {
    const auto place = std::to_string(locationId);
    served_.with([&](driver::DriverService& service) {
      service.touchscreenArrived(place, {locationId, kProductConfigurationOnly});
      service.nodeArrived(place, "/dev/input/" + place);
    });
  }
  void withdraw(std::uint32_t locationId) override {
    served_.with(
        [&](driver::DriverService& service) { service.touchscreenLeft(std::to_string(locationId)); });
  }
  RawPoint touch(std::uint32_t locationId) override {
    touches_ += 1;
    const RawPoint point{1000 + 10 * touches_, 2000 + 10 * touches_};
    const auto now = std::chrono::seconds(touches_);
    const auto node = "/dev/input/" + std::to_string(locationId);
    served_.with([&](driver::DriverService&) {
      served_.inputs().touch(node, {now, 1, {{{0, point.x, point.y}}}});
      served_.inputs().touch(node, {now + std::chrono::milliseconds(8), 0, {}});
    });
    return point;
  }

 private:
  PrivateBus bus_;
  ServedDrivers served_;
  RecordingDiagnostics diagnostics_;
  DriverServiceClient registry_{diagnostics_, Bus::Session, bus_name::kDevelopmentService};
  std::int32_t touches_ = 0;
};

INSTANTIATE_TEST_SUITE_P(DriverService, RegistryContract, ::testing::Values(RegistryProvider{[] {
                           return std::make_unique<ServiceWorld>();
                         }}));

}  // namespace
}  // namespace touchpanel::testing

#include <gtest/gtest.h>

#include "contract/ProductId.h"
#include "support/FakeClock.h"
#include "support/FakeUsbDevice.h"
#include "support/RecordingDiagnostics.h"
#include "touchdriverd/ReadCalibration.h"
#include "touchdriverd/StoppablePorts.h"

namespace touchpanel::testing {
namespace {

TEST(ReadCalibration, WaitsOnlyForADeviceThatAnotherProgramHasOpen) {
  struct Row {
    const char* what;
    std::uint16_t product;
    int refusals;
    Status afterwards;
    Status result;
    std::size_t attempts;
  };
  for (const auto& row : std::vector<Row>{
           {"free at the last attempt", kProductInfrared0080, 49, kErrorNoDevice, kErrorNoDevice, 50},
           {"never free", kProductOptical, 50, kSuccess, kErrorExclusiveAccess, 50},
           {"gone", kProductOptical, 0, kErrorNoDevice, kErrorNoDevice, 1},
           {"does not answer", kProductInfrared0080, 0, kSuccess, kErrorInputOutput, 1},
           {"holds nothing", kProductConfigurationOnly, 0, kSuccess, kErrorUnsupported, 0}}) {
    SCOPED_TRACE(row.what);
    FakeUsbDevice device;
    FakeClock clock;
    RecordingDiagnostics diagnostics;
    driver::HeldCalibration held;
    int refusals = row.refusals;
    device.onOpen = [&] { return refusals-- > 0 ? kErrorExclusiveAccess : row.afterwards; };
    EXPECT_EQ(driver::readCalibration(device, row.product, held, clock, diagnostics), row.result);
    EXPECT_EQ(device.count("open"), row.attempts);
    EXPECT_FALSE(device.isOpen);
    if (row.result != kErrorInputOutput) {
      EXPECT_EQ(clock.now, std::chrono::milliseconds(500) * (row.attempts > 0 ? row.attempts - 1 : 0));
    }
  }
}

TEST(ReadCalibration, LetsGoOfADeviceThatHangs) {
  for (const auto& [longest, requests] :
       {std::pair{std::chrono::hours(1), 1U}, {std::chrono::hours(0), 0U}}) {
    FakeUsbDevice device;
    driver::StoppableDevice limited(device, {}, longest);
    DeviceRequest request{};
    EXPECT_EQ(limited.open(), kSuccess);
    limited.deviceRequest(request);
    EXPECT_EQ(device.requests.size(), requests);
  }
}

}  // namespace
}  // namespace touchpanel::testing

#include <gtest/gtest.h>

#include "contract/ProductId.h"
#include "driver/service/DeviceReading.h"
#include "support/FakeClock.h"
#include "support/FakeUsbDevice.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel::testing {
namespace {

class DeviceReading : public ::testing::Test {
 protected:
  Status read(std::uint16_t product) {
    return driver::readCalibration(device, product, context, clock, diagnostics);
  }
  FakeUsbDevice device;
  FakeClock clock;
  RecordingDiagnostics diagnostics;
  _DEVICT_CONTEXT context{};
};

TEST_F(DeviceReading, WaitsForADeviceThatAnotherProgramHasOpen) {
  int refusals = 49;
  device.onOpen = [&] { return refusals-- > 0 ? kErrorExclusiveAccess : kErrorNoDevice; };
  EXPECT_EQ(read(kProductInfrared0080), kErrorNoDevice);
  EXPECT_EQ(device.count(FakeUsbDevice::Operation::Open), 50U);
  EXPECT_EQ(clock.now, std::chrono::milliseconds(49 * 500));
}

TEST_F(DeviceReading, GivesUpOnADeviceThatNeverGetsFreeAndAtOnceOnOneThatIsGone) {
  device.onOpen = [] { return kErrorExclusiveAccess; };
  EXPECT_EQ(read(kProductOptical), kErrorExclusiveAccess);
  EXPECT_EQ(device.count(FakeUsbDevice::Operation::Open), 50U);
  device.onOpen = [] { return kErrorNoDevice; };
  EXPECT_EQ(read(kProductOptical), kErrorNoDevice);
  EXPECT_EQ(device.count(FakeUsbDevice::Operation::Open), 51U);
}

TEST_F(DeviceReading, ClosesADeviceThatDoesNotAnswer) {
  EXPECT_EQ(read(kProductInfrared0080), kErrorInputOutput);
  EXPECT_FALSE(device.isOpen);
}

TEST_F(DeviceReading, LeavesAProductAloneThatHoldsNothing) {
  EXPECT_EQ(read(kProductConfigurationOnly), kErrorUnsupported);
  EXPECT_TRUE(device.calls.empty());
}

}  // namespace
}  // namespace touchpanel::testing

#include <gtest/gtest.h>

#include "contract/ProductId.h"
#include "support/FakeClock.h"
#include "support/FakeUsbDevice.h"
#include "support/RecordingDiagnostics.h"
#include "touchdriverd/ReadCalibration.h"

namespace touchpanel::testing {
namespace {

class ReadCalibration : public ::testing::Test {
 protected:
  Status read(std::uint16_t product) {
    return driver::readCalibration(device, product, held, clock, diagnostics);
  }
  FakeUsbDevice device;
  FakeClock clock;
  RecordingDiagnostics diagnostics;
  driver::HeldCalibration held;
};

TEST_F(ReadCalibration, WaitsForADeviceThatAnotherProgramHasOpen) {
  int refusals = 49;
  device.onOpen = [&] { return refusals-- > 0 ? kErrorExclusiveAccess : kErrorNoDevice; };
  EXPECT_EQ(read(kProductInfrared0080), kErrorNoDevice);
  EXPECT_EQ(device.count(FakeUsbDevice::Operation::Open), 50U);
  EXPECT_EQ(clock.now, std::chrono::milliseconds(49 * 500));
}

TEST_F(ReadCalibration, GivesUpOnADeviceThatNeverGetsFreeAndAtOnceOnOneThatIsGone) {
  device.onOpen = [] { return kErrorExclusiveAccess; };
  EXPECT_EQ(read(kProductOptical), kErrorExclusiveAccess);
  EXPECT_EQ(device.count(FakeUsbDevice::Operation::Open), 50U);
  device.onOpen = [] { return kErrorNoDevice; };
  EXPECT_EQ(read(kProductOptical), kErrorNoDevice);
  EXPECT_EQ(device.count(FakeUsbDevice::Operation::Open), 51U);
}

TEST_F(ReadCalibration, ClosesADeviceThatDoesNotAnswer) {
  EXPECT_EQ(read(kProductInfrared0080), kErrorInputOutput);
  EXPECT_FALSE(device.isOpen);
}

TEST_F(ReadCalibration, LeavesAProductAloneThatHoldsNothing) {
  EXPECT_EQ(read(kProductConfigurationOnly), kErrorUnsupported);
  EXPECT_TRUE(device.calls.empty());
}

}  // namespace
}  // namespace touchpanel::testing

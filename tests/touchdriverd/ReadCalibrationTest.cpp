#include <gtest/gtest.h>

#include "contract/ProductId.h"
#include "protocol/Packet.h"
#include "support/CalibrationParams.h"
#include "support/FakeClock.h"
#include "support/FakePropertyListFiles.h"
#include "support/FakeUsbDevice.h"
#include "support/FirmwareUsbDevice.h"
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

TEST(ReadCalibration, TakesNoBlockThatFailedForOneOfZeros) {
  auto description = firmware::exampleDevice(DeviceKind::Infrared);
  description.deviceConfig.CalibrateStatus = 1;
  firmware::Firmware firmware(description);
  for (const auto ignored : {CMD_GET_PROPS, CMD_IR_GET_CALIB_X, CMD_IR_GET_CALIB_Y, CMD_GET_VERSION}) {
    firmware.setFault({firmware::Fault::IgnoresCommand, ignored});
    FirmwareUsbDevice device(firmware);
    FakeClock clock;
    RecordingDiagnostics diagnostics;
    driver::HeldCalibration held;
    const auto status = driver::readCalibration(device, description.productId, held, clock, diagnostics);
    const bool isNeeded = ignored != CMD_GET_VERSION;
    EXPECT_EQ(status, isNeeded ? kErrorInputOutput : kSuccess);
    EXPECT_EQ(held.calibrateStatus, !isNeeded);
  }
}

TEST(ReadCalibration, TakesThePanelsFileOfATouchscreenWithoutStorage) {
  const auto params = imageOf(shiftedBy(3, 4));
  struct Row {
    Dictionary file;
    Status result;
  };
  for (const auto& row :
       std::vector<Row>{{{{"CalibrateStatus", true}, {"CalibParams", bytesOf(shiftedBy(3, 4))}}, kSuccess},
                        {{{"CalibrateStatus", false}}, kSuccess},
                        {{{"CalibrateStatus", true}, {"CalibParams", Bytes(7, 1)}}, kErrorBadArgument},
                        {{{"CalibrateStatus", true}}, kErrorBadArgument}}) {
    FakePropertyListFiles files;
    driver::HeldCalibration held;
    EXPECT_EQ(driver::readCalibration(files, "/file", held), kErrorNotFound);
    files.files["/file"] = row.file;
    EXPECT_EQ(driver::readCalibration(files, "/file", held), row.result);
    EXPECT_EQ(held.calibrateStatus, row.result == kSuccess && row.file.boolean("CalibrateStatus"));
    EXPECT_EQ(imageOf(held.params) == params, held.calibrateStatus);
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

#include <algorithm>

#include <gmock/gmock.h>

#include "discovery/ContextStore.h"
#include "protocol/Packet.h"
#include "support/FakeClock.h"
#include "support/FakePropertyListFiles.h"
#include "support/FakeUsb.h"
#include "support/RecordingDiagnostics.h"
#include "support/RecordingWaitNotice.h"

namespace touchpanel {
namespace {

struct StoringAContext : ::testing::Test {
  testing::FakeUsbDevice device;
  testing::FakeUsb usb;
  testing::FakePropertyListFiles files;
  testing::FakeClock clock;
  testing::RecordingDiagnostics diagnostics;
  testing::RecordingWaitNotice waitNotice;
  ConfigPaths paths = ConfigPaths::in("/x");
  ContextStore store{usb, files, paths, {clock, diagnostics}, waitNotice};

  void SetUp() override {
    usb.add(device);
    // What the user is shown while the device is opened, which every write begins with.
    device.onOpen = [this] {
      shownWhileWriting = waitNotice.isShown;
      return kSuccess;
    };
  }
  bool shownWhileWriting = false;
};

/// Command codes of the polynomial writes tell the two families apart.
bool sentCommand(const testing::FakeUsbDevice& device, std::uint8_t command) {
  const auto packets = device.packets();
  return std::any_of(packets.begin(), packets.end(),
                     [&](const auto& packet) { return packet[kCommandAt] == command; });
}

/// A device that acknowledges every command of its family.
std::function<Bytes(const Bytes&)> acknowledging(std::uint8_t replyCode) {
  return [replyCode](Bytes packet) {
    packet[kKindAt] = replyCode;
    return packet;
  };
}

TEST_F(StoringAContext, WritesEachProductWhereItsKindKeepsTheCalibration) {
  struct Case {
    std::int32_t productId;
    bool infrared;
    bool optical;
    bool file;
  };
  for (const Case& expected :
       {Case{0x0001, false, false, true}, Case{0x0C20, false, true, false}, Case{0x0080, true, false, false},
        Case{0x0085, true, false, false}, Case{0x0086, true, false, false}, Case{0x0087, true, false, false},
        Case{0x0088, false, false, false}, Case{0, false, false, false}}) {
    SCOPED_TRACE(expected.productId);
    device.calls.clear();
    files.files.clear();
    shownWhileWriting = false;
    device.answer = acknowledging(expected.optical ? REPLY_OPT_SET : REPLY_IR);
    store.save(expected.productId, device.ownReference, _DEVICT_CONTEXT{});
    EXPECT_EQ(sentCommand(device, CMD_IR_SET_CALIB_X), expected.infrared);
    EXPECT_EQ(sentCommand(device, CMD_OPT_SET_CALIB), expected.optical);
    EXPECT_EQ(files.files.contains(paths.deviceConfig), expected.file);
    EXPECT_EQ(shownWhileWriting, expected.infrared || expected.optical);
    EXPECT_FALSE(waitNotice.isShown) << "the notice is gone afterwards";
  }
}

TEST_F(StoringAContext, WritesNothingToADeviceWhoseInterfaceIsNoMore) {
  store.save(0x0080, device.ownReference + 1, _DEVICT_CONTEXT{});
  EXPECT_TRUE(device.calls.empty());
  EXPECT_TRUE(waitNotice.messages.empty());
}

}  // namespace
}  // namespace touchpanel

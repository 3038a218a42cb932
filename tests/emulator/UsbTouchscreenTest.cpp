#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "emulator/device/UsbTouchscreen.h"
#include "platform_build/BuildConstants.h"

namespace touchpanel::emulator {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using Bytes = std::vector<std::uint8_t>;

UsbTouchscreen exampleScreen(DeviceKind kind) { return {firmware::exampleDevice(kind), {}, 1}; }

ControlAnswer descriptor(UsbTouchscreen& screen, std::uint16_t value, std::uint16_t length = 0xFFFF) {
  return screen.control({0x80, 6, value, 0, length}, {});
}

constexpr ControlSetup kSendPacket{0x40, 0, 0, 0, 6};
constexpr ControlSetup kReadReply{0xC0, 0, 0, 0, 64};

/// The request for the screen properties, as a panel sends it.
Bytes readRequest() { return {0xAA, 2, 0x30, 1, 0, 0x32}; }

TEST(UsbTouchscreen, TellsItsIdentityAndOneHidInterface) {
  UsbTouchscreen screen = exampleScreen(DeviceKind::Optical);
  const Bytes device = descriptor(screen, 0x0100).data;
  ASSERT_THAT(device, SizeIs(18));
  EXPECT_EQ(device[8] | device[9] << 8, TOUCH_VENDOR_ID);
  EXPECT_EQ(device[10] | device[11] << 8, kProductOptical);
  EXPECT_EQ(descriptor(screen, 0x0100, 8).data, Bytes(device.begin(), device.begin() + 8));

  const Bytes configuration = descriptor(screen, 0x0200).data;
  ASSERT_THAT(configuration, SizeIs(34));
  EXPECT_EQ(configuration[2] | configuration[3] << 8, 34);
  EXPECT_EQ(configuration[14], 3) << "the HID class";
  const std::size_t declared = static_cast<std::size_t>(configuration[25] | configuration[26] << 8);
  EXPECT_EQ(descriptor(screen, 0x2200).data.size(), declared);
  EXPECT_THAT(descriptor(screen, 0x0302).data, SizeIs(2 + 2 * 19));
}

TEST(UsbTouchscreen, RefusesWhatItDoesNotKnow) {
  UsbTouchscreen screen = exampleScreen(DeviceKind::Infrared);
  const ControlSetup refused[] = {{0x80, 6, 0x0600, 0, 10},  // no high speed, so no device qualifier
                                  {0x80, 6, 0x0F00, 0, 5},   // no binary object store
                                  {0x80, 6, 0x0309, 0, 255}, {0x00, 9, 2, 0, 0},     {0x00, 3, 1, 0, 0},
                                  {0xA1, 1, 0x0309, 0, 8},   {0xC0, 1, 0, 0, 64},    {0xC1, 0, 0, 0, 64},
                                  {0xE0, 0, 0, 0, 1},        {0x20, 1, 0x0302, 0, 8}};
  for (const ControlSetup& setup : refused) {
    EXPECT_EQ(screen.control(setup, {}).outcome, ControlOutcome::Stalled)
        << int{setup.requestType} << ' ' << int{setup.request} << ' ' << setup.value;
  }
}

TEST(UsbTouchscreen, AnswersVendorPacketsOutOfItsFirmware) {
  UsbTouchscreen screen = exampleScreen(DeviceKind::Infrared);
  const Bytes enter = {0xAA, 1, 0x71, 2, 0, 1, 0x74};
  EXPECT_EQ(screen.control(kSendPacket, enter).outcome, ControlOutcome::Done);
  EXPECT_TRUE(screen.firmware().inCommandMode());
  EXPECT_EQ(screen.control(kSendPacket, readRequest()).outcome, ControlOutcome::Done);
  const ControlAnswer reply = screen.control(kReadReply, {});
  ASSERT_THAT(reply.data, SizeIs(64));
  EXPECT_EQ(reply.data[2], 0x30);
  const auto stored = imageOf(screen.firmware().stored().screenProps);
  EXPECT_TRUE(std::equal(stored.begin(), stored.end(), reply.data.begin() + 5));
}

TEST(UsbTouchscreen, HasTheFaultsThatItIsToldToHave) {
  struct Case {
    firmware::FaultSetting fault;
    ControlOutcome outcome;
  };
  for (const Case& expected : {Case{{firmware::Fault::Stalls, 0}, ControlOutcome::Stalled},
                               Case{{firmware::Fault::DiesAfterPackets, 0}, ControlOutcome::NoAnswer}}) {
    UsbTouchscreen screen = exampleScreen(DeviceKind::Infrared);
    screen.firmware().setFault(expected.fault);
    EXPECT_EQ(screen.control(kSendPacket, readRequest()).outcome, expected.outcome);
  }
  UsbTouchscreen screen = exampleScreen(DeviceKind::Infrared);
  screen.unplugAfter(2);
  EXPECT_EQ(screen.control(kSendPacket, readRequest()).outcome, ControlOutcome::Done);
  EXPECT_FALSE(screen.wantsUnplug());
  EXPECT_EQ(screen.control(kSendPacket, readRequest()).outcome, ControlOutcome::NoAnswer);
  EXPECT_TRUE(screen.wantsUnplug());
  screen.powerCycle();
  EXPECT_FALSE(screen.wantsUnplug());
}

TEST(UsbTouchscreen, DropsTouchesThatNobodyReads) {
  UsbTouchscreen screen = exampleScreen(DeviceKind::Infrared);
  screen.touch(0, {0.5, 0.5}, 0);
  EXPECT_THAT(screen.takeReport(), IsEmpty());
  screen.setListened(true);
  screen.lift(0, 0);
  screen.touch(0, {0.25, 0.5}, 0);
  EXPECT_THAT(screen.takeReport(), SizeIs(64));
  screen.setListened(false);
  EXPECT_EQ(screen.droppedReports(), 2U) << "the first, and the last that was still waiting";
  screen.setListened(true);
  EXPECT_THAT(screen.takeReport(), IsEmpty());
}

TEST(UsbTouchscreen, ComesBackFromAPowerCutWithEmptyHandsButItsMemory) {
  UsbTouchscreen screen = exampleScreen(DeviceKind::Infrared);
  screen.control({0x00, 9, 1, 0, 0}, {});
  screen.setListened(true);
  screen.touch(0, {0.5, 0.5}, 0);
  const auto before = imageOf(screen.firmware().stored().calibParams);
  screen.powerCycle();
  EXPECT_EQ(screen.configuration(), 0);
  EXPECT_FALSE(screen.listened());
  EXPECT_THAT(screen.takeReport(), IsEmpty());
  EXPECT_EQ(imageOf(screen.firmware().stored().calibParams), before);
}

}  // namespace
}  // namespace touchpanel::emulator

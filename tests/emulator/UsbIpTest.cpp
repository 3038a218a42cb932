#include <gtest/gtest.h>

#include "emulator/usbip/UsbIpConnection.h"
#include "emulator/usbip/VhciPorts.h"

namespace touchpanel::emulator {
namespace {

using Bytes = std::vector<std::uint8_t>;

void append(Bytes& bytes, std::uint32_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<std::uint8_t>(number >> shift));
}

/// A transfer as the kernel sends it.
Bytes submit(std::uint32_t sequence, bool in, std::uint32_t endpoint, std::uint32_t length, Bytes setup = {},
             const Bytes& data = {}) {
  Bytes bytes;
  for (std::uint32_t number : {1U, sequence, 0x10001U, in ? 1U : 0U, endpoint, 0x200U, length, 0U, 0U, 4U})
    append(bytes, number);
  setup.resize(8);
  bytes.insert(bytes.end(), setup.begin(), setup.end());
  bytes.insert(bytes.end(), data.begin(), data.end());
  return bytes;
}

Bytes unlink(std::uint32_t sequence, std::uint32_t victim) {
  Bytes bytes;
  for (std::uint32_t number : {2U, sequence, 0x10001U, 0U, 0U, victim}) append(bytes, number);
  bytes.resize(kUsbIpHeaderSize);
  return bytes;
}

/// An answer as the kernel expects it; `command` is 3 for a transfer and 4 for an unlink.
Bytes answer(std::uint32_t command, std::uint32_t sequence, std::int32_t status, std::uint32_t length,
             const Bytes& data = {}) {
  Bytes bytes;
  for (std::uint32_t number : {command, sequence, 0U, 0U, 0U, static_cast<std::uint32_t>(status), length})
    append(bytes, number);
  bytes.resize(kUsbIpHeaderSize);
  bytes.insert(bytes.end(), data.begin(), data.end());
  return bytes;
}

class UsbIpConnectionTest : public ::testing::Test {
 protected:
  Bytes sent() { return std::exchange(connection.outgoing(), {}); }

  UsbTouchscreen device{firmware::exampleDevice(DeviceKind::Infrared), {}, 1};
  UsbIpConnection connection{device};
  const Bytes setConfiguration = submit(7, false, 0, 0, {0x00, 9, 1, 0, 0, 0, 0, 0});
  const Bytes vendorOut = submit(8, false, 0, 6, {0x40, 0, 0, 0, 0, 0, 6, 0}, {0xAA, 2, 0x30, 1, 0, 0x32});
};

TEST_F(UsbIpConnectionTest, AnswersTransfersInAnyCutOfTheStream) {
  Bytes stream = vendorOut;
  for (const Bytes& part :
       {setConfiguration, submit(9, true, 0, 8, {0x80, 8, 0, 0, 0, 0, 1, 0}),
        submit(10, true, 0, 64, {0x80, 6, 0, 0x0F, 0, 0, 5, 0}), submit(11, true, 3, 64)}) {
    stream.insert(stream.end(), part.begin(), part.end());
  }
  Bytes expected = answer(3, 8, 0, 6);
  for (const Bytes& part :
       {answer(3, 7, 0, 0), answer(3, 9, 0, 1, {1}), answer(3, 10, -32, 0), answer(3, 11, -32, 0)}) {
    expected.insert(expected.end(), part.begin(), part.end());
  }
  for (std::size_t piece : {std::size_t{1}, std::size_t{47}, std::size_t{50}, stream.size()}) {
    for (std::size_t at = 0; at < stream.size(); at += piece) {
      ASSERT_TRUE(connection.receive(std::span(stream).subspan(at, std::min(piece, stream.size() - at))));
    }
    EXPECT_EQ(sent(), expected) << "in pieces of " << piece;
  }
}

TEST_F(UsbIpConnectionTest, ParksReadsUntilThereIsATouchOrTheyAreTakenBack) {
  connection.receive(submit(1, true, 1, 64));
  connection.receive(submit(2, true, 1, 64));
  EXPECT_TRUE(sent().empty());
  device.touch(0, {0.5, 0.5}, 0);
  connection.deliverReports();
  EXPECT_EQ(sent().size(), kUsbIpHeaderSize + 64);
  connection.receive(unlink(3, 2));
  EXPECT_EQ(sent(), answer(4, 3, -104, 0));
  EXPECT_FALSE(device.listened());
  connection.receive(unlink(4, 2));
  EXPECT_EQ(sent(), answer(4, 4, 0, 0)) << "nothing is pending any more";
}

TEST_F(UsbIpConnectionTest, AnswersForADeadDevice) {
  device.firmware().setFault({firmware::Fault::DiesAfterPackets, 0});
  connection.receive(vendorOut);
  EXPECT_EQ(sent(), answer(3, 8, -71, 0));
}

TEST_F(UsbIpConnectionTest, EndsAStreamThatMakesNoSense) {
  EXPECT_FALSE(connection.receive(Bytes(kUsbIpHeaderSize, 0xFF)));
  UsbIpConnection other{device};
  EXPECT_FALSE(other.receive(submit(1, true, 0, 0x10000)));
}

TEST(UsbTouchscreen, RefusesWhatItDoesNotKnow) {
  UsbTouchscreen screen{firmware::exampleDevice(DeviceKind::Infrared), {}, 1};
  const ControlSetup refused[] = {{0x80, 6, 0x0600, 0, 10},  // no high speed, so no device qualifier
                                  {0x80, 6, 0x0F00, 0, 5},   // no binary object store
                                  {0x80, 6, 0x0309, 0, 255}, {0x00, 9, 2, 0, 0},     {0x00, 3, 1, 0, 0},
                                  {0xA1, 1, 0x0309, 0, 8},   {0xC0, 1, 0, 0, 64},    {0xC1, 0, 0, 0, 64},
                                  {0xE0, 0, 0, 0, 1},        {0x20, 1, 0x0302, 0, 8}};
  for (const ControlSetup& setup : refused) {
    EXPECT_EQ(screen.control(setup, {}).outcome, firmware::TransferResult::Stalled)
        << int{setup.requestType} << ' ' << int{setup.request} << ' ' << setup.value;
  }
}

TEST(TouchReports, OfOneFingerStayWithTheOneThatCameFirst) {
  TouchReports reports(ReportStyle::SingleTouch);
  EXPECT_EQ(reports.touch(5, {0x0102, 3}, 0), (Bytes{1, 2, 1, 3, 0}));
  EXPECT_EQ(reports.touch(0, {9, 9}, 0), (Bytes{1, 2, 1, 3, 0}));
  EXPECT_EQ(reports.lift(5, 0), (Bytes{0, 2, 1, 3, 0}));
  EXPECT_EQ(reports.touch(0, {8, 9}, 0), (Bytes{1, 8, 0, 9, 0}));
}

TEST(VhciPorts, OnlyAnUnusedPortBelowSuperSpeedTakesATouchscreen) {
  constexpr char ports[] =
      "hub port sta spd dev      sockfd local_busid\n"
      "hs  0030 006 002 00010001 000003 1-1\n"
      "hs  0031 005 000 00000000 000000 0-0\n"
      "hs  0032 004 000 00000000 000000 0-0\n"
      "hs  0033 004 000 00000000 000000 0-0\n"
      "ss  0045 004 000 00000000 000000 0-0\n";
  EXPECT_EQ(freeVhciPort(ports, std::nullopt), (VhciPort{32, 3}));
  EXPECT_EQ(freeVhciPort(ports, 33), (VhciPort{33, 4}));
  for (const int taken : {9, 30, 31, 45}) EXPECT_EQ(freeVhciPort(ports, taken), std::nullopt) << taken;
  EXPECT_EQ(freeVhciPort("nonsense\nhs x y\n", std::nullopt), std::nullopt);
}

}  // namespace
}  // namespace touchpanel::emulator

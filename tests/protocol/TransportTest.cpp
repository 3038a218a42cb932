#include <optional>

#include <gmock/gmock.h>

#include "protocol/Transport.h"
#include "support/FakeClock.h"
#include "support/FakeUsbDevice.h"

namespace touchpanel {
namespace {

using std::chrono_literals::operator""ms;
using testing::FakeUsbDevice;
using Bytes = FakeUsbDevice::Bytes;

constexpr std::uint8_t kUntouched = 0xEE;

Bytes versionReply() {
  Bytes reply(64);
  for (std::size_t i = 0; i < reply.size(); ++i) reply[i] = static_cast<std::uint8_t>(0x80 + i);
  reply[1] = REPLY_IR;
  reply[2] = CMD_GET_VERSION;
  return reply;
}

/// One exchange of a version command with a scripted device.
class CommandExchange : public ::testing::Test {
 protected:
  CommandExchange() { reply.fill(kUntouched); }

  int exchange() {
    PacketBuffer request{};
    const auto size = buildPkg(PKT_GET, CMD_GET_VERSION, 0, 0, nullptr, request.data());
    return sendCMD(device, request, reply, static_cast<std::uint16_t>(size), REPLY_IR, 50ms, clock);
  }
  void expectNoReply(std::size_t attempts = 50, std::size_t delays = 50) {
    PacketBuffer untouched;
    untouched.fill(kUntouched);
    EXPECT_EQ(exchange(), 0);
    EXPECT_EQ(reply, untouched);
    EXPECT_EQ(device.packets().size(), attempts);
    EXPECT_EQ(clock.sleeps, std::vector<std::chrono::milliseconds>(delays, 50ms));
  }
  /// The device answers with garbage until attempt `number`, then with the right reply.
  void answerOnAttempt(std::size_t number) {
    device.answer = [this, number](const Bytes&) {
      return device.packets().size() < number ? Bytes(64, 0xFF) : versionReply();
    };
  }

  FakeUsbDevice device;
  testing::FakeClock clock;
  PacketBuffer reply;
};

TEST_F(CommandExchange, FillsInTheRequestOfEachTransfer) {
  answerOnAttempt(1);
  EXPECT_EQ(exchange(), 1);
  ASSERT_EQ(device.requests.size(), 2U);
  const auto& out = device.requests[0];
  const auto& in = device.requests[1];
  EXPECT_EQ(out.bmRequestType, 0x40);
  EXPECT_EQ(out.wLength, 6);
  EXPECT_EQ(in.bmRequestType, 0xC0);
  EXPECT_EQ(in.wLength, 64);
  for (const auto& request : {out, in}) {
    EXPECT_EQ(request.bRequest, 0);
    EXPECT_EQ(request.wValue, 0);
    EXPECT_EQ(request.wIndex, 0);
    EXPECT_EQ(request.wLenDone, 0U);
  }
}

TEST_F(CommandExchange, TakesTheWholeReplyOfAnyButTheLastAttempt) {
  for (const std::size_t attempt : {1U, 2U, 48U, 49U}) {
    device.calls.clear();
    answerOnAttempt(attempt);
    EXPECT_EQ(exchange(), 1);
    EXPECT_EQ(device.packets().size(), attempt);
    EXPECT_EQ(Bytes(reply.begin(), reply.end()), versionReply());
  }
}

TEST_F(CommandExchange, DiscardsAMatchOnTheLastAttempt) {
  answerOnAttempt(50);
  expectNoReply();
}

TEST_F(CommandExchange, GivesUpWhenEveryTransferFails) {
  device.outStatus = kErrorTimeout;
  device.inStatus = kErrorStalled;
  expectNoReply();
}

TEST_F(CommandExchange, EndsAtOnceWhenTheDeviceIsGoneInEitherDirection) {
  device.pendingReply = versionReply();
  device.inStatus = kErrorNoDevice;
  expectNoReply(1, 1);
  clock.sleeps.clear();
  device.calls.clear();
  device.outStatus = kErrorNoDevice;
  device.inStatus = kSuccess;
  expectNoReply(1, 0);
}

TEST_F(CommandExchange, TakesAReplyThoughTheRequestSeemedToFail) {
  device.outStatus = kErrorTimeout;
  device.pendingReply = versionReply();
  EXPECT_EQ(exchange(), 1);
}

TEST_F(CommandExchange, KeepsWhatAnEarlierAttemptBroughtWhereALaterReplyIsShort) {
  device.answer = [this](const Bytes&) {
    if (device.packets().size() == 1) return Bytes(64, 0xFF);
    auto shortReply = versionReply();
    shortReply.resize(7);
    return shortReply;
  };
  EXPECT_EQ(exchange(), 1);
  Bytes expected = versionReply();
  std::fill(expected.begin() + 7, expected.end(), std::uint8_t{0xFF});
  EXPECT_EQ(Bytes(reply.begin(), reply.end()), expected);
}

TEST_F(CommandExchange, JudgesAReplyByItsCodeAndEchoAlone) {
  for (std::size_t bit = 0; bit < 8 * kPacketSize; ++bit) {
    auto flipped = versionReply();
    flipped[bit / 8] ^= static_cast<std::uint8_t>(1U << (bit % 8));
    device.answer = [&](const Bytes&) { return flipped; };
    const bool judged = bit / 8 == 1 || bit / 8 == 2;
    EXPECT_EQ(exchange(), judged ? 0 : 1) << "bit " << bit;
    if (judged) continue;
    EXPECT_EQ(Bytes(reply.begin(), reply.end()), flipped);
  }
}

TEST_F(CommandExchange, FillsATruncatedReplyUpWithZeros) {
  for (std::size_t length = 1; length <= kPacketSize; ++length) {
    auto truncated = versionReply();
    truncated.resize(length);
    device.answer = [&](const Bytes&) { return truncated; };
    EXPECT_EQ(exchange(), length >= 3 ? 1 : 0) << length;
    if (length < 3) continue;
    truncated.resize(kPacketSize);
    EXPECT_EQ(Bytes(reply.begin(), reply.end()), truncated);
  }
}

}  // namespace
}  // namespace touchpanel

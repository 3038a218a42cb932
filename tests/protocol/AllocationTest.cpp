#include <gtest/gtest.h>

#include "protocol/Exchange.h"
#include "protocol/Packet.h"
#include "support/AllocationCount.h"

namespace touchpanel {
namespace {

/// Echoes every command with the reply code that its test asks for, and allocates nothing.
class EchoingDevice final : public UsbDeviceInterface {
 public:
  std::uint8_t setReply = REPLY_IR;
  std::uint8_t getReply = REPLY_IR;
  bool answering = true;

  Status open() override { return kSuccess; }
  Status close() override { return kSuccess; }
  Status deviceRequest(DeviceRequest& request) override {
    if (!answering) return kErrorNoDevice;
    if ((request.bmRequestType & 0x80) == 0) {
      reply_[kKindAt] = request.pData[kKindAt] == PKT_SET ? setReply : getReply;
      reply_[kCommandAt] = request.pData[kCommandAt];
      reply_[kLengthAt] = 5;
      return kSuccess;
    }
    std::copy(reply_.begin(), reply_.end(), request.pData);
    return kSuccess;
  }
  Status getConfiguration(std::uint8_t&) override { return kSuccess; }
  Status getLocationID(std::uint32_t&) override { return kSuccess; }
  Status getDeviceVendor(std::uint16_t&) override { return kSuccess; }
  Status getDeviceProduct(std::uint16_t&) override { return kSuccess; }
  void release() override {}
  UsbDeviceReference reference() const override { return 1; }

 private:
  PacketBuffer reply_{};
};

class NoClock final : public Clock {
 public:
  void sleep(std::chrono::milliseconds) override {}
};
class CountingDiagnostics final : public Diagnostics {
 public:
  void line(std::string_view) override { ++lines; }
  int lines = 0;
};

TEST(Exchange, AllocatesNothingWhetherItSucceedsOrFails) {
  NoClock clock;
  CountingDiagnostics diagnostics;
  const ExchangePorts ports{clock, diagnostics};
  _DEVICT_CONTEXT context{};
  EchoingDevice infrared;
  EchoingDevice optical;
  optical.setReply = REPLY_OPT_SET;
  optical.getReply = REPLY_OPT_GET;
  EchoingDevice dead;
  dead.answering = false;
  EchoingDevice deafToReads;
  deafToReads.setReply = REPLY_OPT_SET;

  const std::size_t before = testing::allocationCount();
  const int healthy = getIrTucParam(infrared, context, ports) + saveDataToIrDevice(infrared, context, ports) +
                      getOptTucParam(optical, context, ports) + saveDataToOptDevice(optical, context, ports);
  const int healthyLines = diagnostics.lines;
  const int failed = getIrTucParam(dead, context, ports) + saveDataToOptDevice(dead, context, ports);
  const int partly = getOptTucParam(deafToReads, context, ports);
  const std::size_t after = testing::allocationCount();

  EXPECT_EQ(after, before);
  EXPECT_EQ(healthy, 4);
  EXPECT_EQ(healthyLines, 0);
  EXPECT_EQ(failed, 0);
  EXPECT_EQ(partly, 1);
  EXPECT_EQ(diagnostics.lines, 2 + 6);
}

}  // namespace
}  // namespace touchpanel

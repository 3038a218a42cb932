#include <functional>
#include <map>

#include <gmock/gmock.h>

#include "platform/HexText.h"
#include "protocol/Exchange.h"
#include "protocol/Packet.h"
#include "support/AllocationCount.h"
#include "support/FakeClock.h"
#include "support/FakeUsbDevice.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel {
namespace {

using testing::FakeUsbDevice;
using Bytes = FakeUsbDevice::Bytes;
using Log = std::vector<std::string>;

constexpr int kAllAttempts = 50;

/// A record whose byte i is i * 37 + 11: what the packets that write blocks carry.
_DEVICT_CONTEXT patternContext() {
  std::array<std::uint8_t, kDeviceContextSize> image{};
  for (std::size_t i = 0; i < image.size(); ++i) image[i] = static_cast<std::uint8_t>(i * 37 + 11);
  _DEVICT_CONTEXT context{};
  copyImage(image, context);
  return context;
}

/// One command of an exchange as it shows from outside.
struct Step {
  std::string packet;  ///< hexadecimal, worked out outside this program from the packet layout
  int delayMs;
  std::uint8_t replyCode;
  std::string failure;
  // What a good reply of a read carries, and what that leaves at which place of the record.
  std::string payload = {};
  std::size_t recordOffset = 0;
  std::string recordBytes = payload;

  bool isSwitch() const { return packet.starts_with("aa0171"); }
  Content content() const {
    static const std::map<std::string, Content> contents = {
        {"3000", Content::ScreenProps}, {"3001", Content::DeviceConfig}, {"3101", Content::DeviceConfig},
        {"2d00", Content::CalibX},      {"2e00", Content::CalibX},       {"1400", Content::CalibX},
        {"1500", Content::CalibX},      {"2b00", Content::CalibY},       {"2c00", Content::CalibY},
        {"1401", Content::CalibY},      {"1501", Content::CalibY},       {"3200", Content::Version},
        {"1700", Content::BarCodeText}, {"3400", Content::BarCodeFields}};
    return contents.at(packet.substr(4, 2) + packet.substr(8, 2));
  }
};

struct GoldenExchange {
  std::string name;
  std::function<int(UsbDeviceInterface&, _DEVICT_CONTEXT&, const ExchangePorts&, ExchangeOutcome*)> run;
  bool writes;
  std::vector<Step> steps;
};

/// The four exchanges, in the order and with the replies of devices in good health.
const std::vector<GoldenExchange>& goldenExchanges() {
  const std::string toDiagnosis = "To set the touchscreen to the diagnosis mode failed.";
  const std::string toCommand = "To set the touchscreen to the command mode failed.";
  const std::string toWork = "To set the touchscreen to the work mode failed.";
  const std::string enterUnit0 = "aa017102000174", leaveUnit0 = "aa017102000073";
  const std::string enterUnit1 = "aa017102010175", leaveUnit1 = "aa017102010074";
  const std::string setDeviceConfig =
      "aa01313b016d92b7dc01264b7095badf04294e7398bde2072c51769bc0e50a2f54799ec3e80d32577ca1c6eb10355a7fa4c9"
      "ee13385d82a7ccf1163b6085aa08";
  const std::string props(kBlockSize, 's'), config(kBlockSize, 'c'), x(kBlockSize, 'x'), y(kBlockSize, 'y');
  const std::string version("\x05\x02\x0C\x00", 4);
  const std::string versionText("2.5.0012\0", 9);
  const std::string infraredBarCode = "IR-0123456789-ABCDEFGHIJKLMNOPQRS";
  const std::string opticalBarCode(
      "\x41\x01\x42\x02\x43\x44\x03\x45\x04\x00\x00\x05\x06\x39\x30\x00\x00\x7E\x7E\x7E", 20);
  const std::string opticalBarCodeText("A01B02C-D3E-04-0506-0012345\0", 28);
  static const std::vector<GoldenExchange> exchanges = {
      {"infrared read",
       getIrTucParam,
       false,
       {{enterUnit0, 30, 0x10, toDiagnosis},
        {"aa0230010032", 50, 0x10, "To get screen props failed.", props, 0},
        {"aa022d01002f", 50, 0x10, "To get calib X parameter failed.", x, 116},
        {"aa022b01002d", 50, 0x10, "To get calib Y parameter failed.", y, 174},
        {"aa0230010133", 50, 0x10, "To get device configuration failed.", config, 58},
        {"aa0232010034", 50, 0x10, "To get firmware version failed.", version, 233, versionText},
        {"aa0217010019", 50, 0x10, "To get firmware version failed.", infraredBarCode, 253},
        {leaveUnit0, 30, 0x10, toWork}}},
      {"infrared write",
       saveDataToIrDevice,
       true,
       {{enterUnit0, 10, 0x10, toCommand},
        {setDeviceConfig, 50, 0x10, "Set device config failed."},
        {"aa012e3b00cff4193e6388add2f71c41668bb0d5fa1f44698eb3d8fd22476c91b6db00254a6f"
         "94b9de03284d7297bce1062b50759abfe4092e53789dc2e70c38",
         50, 0x10, "Set X calib para failed."},
        {"aa012c3b0031567ba0c5ea0f34597ea3c8ed12375c81a6cbf0153a5f84a9cef3183d6287acd1"
         "f61b40658aafd4f91e43688db2d7fc21466b90b5daff24496e6a",
         50, 0x10, "Set Y calib para failed."},
        {leaveUnit0, 10, 0x10, "Set touchscreen to work mode failed."}}},
      {"optical read",
       getOptTucParam,
       false,
       {{enterUnit0, 500, 0x11, toDiagnosis},
        {enterUnit1, 10, 0x11, toDiagnosis},
        {"aa0230010032", 10, 0x12, "To get secondary cam props failed.", props, 0},
        {"aa0230010133", 10, 0x12, "To get device configuration failed.", config, 58},
        {"aa0214010016", 10, 0x12, "To get calib X parameter failed.", x, 116},
        {"aa0214010117", 10, 0x12, "To get calib Y parameter failed.", y, 174},
        {"aa0232010034", 10, 0x12, "To get firmware version failed.", version, 233, versionText},
        {"aa0234010036", 10, 0x12, "To get barcode version failed.", opticalBarCode, 253, opticalBarCodeText},
        {leaveUnit0, 10, 0x11, toWork},
        {leaveUnit1, 10, 0x11, toWork}}},
      {"optical write",
       saveDataToOptDevice,
       true,
       {{enterUnit0, 10, 0x11, toDiagnosis},
        {enterUnit1, 10, 0x11, toDiagnosis},
        {setDeviceConfig, 50, 0x11, toDiagnosis},
        {"aa01153b00cff4193e6388add2f71c41668bb0d5fa1f44698eb3d8fd22476c91b6db00254a6f"
         "94b9de03284d7297bce1062b50759abfe4092e53789dc2e70c1f",
         50, 0x11, "To set X calib para failed."},
        {"aa01153b0131567ba0c5ea0f34597ea3c8ed12375c81a6cbf0153a5f84a9cef3183d6287acd1"
         "f61b40658aafd4f91e43688db2d7fc21466b90b5daff24496e54",
         50, 0x11, "To set Y calib para failed."},
        {leaveUnit0, 10, 0x11, toWork},
        {leaveUnit1, 10, 0x11, toWork}}}};
  return exchanges;
}

/// How a device fails a command.
enum class Way { Silence, WrongClass, WrongEcho, TransfersFail, Gone };

Status statusOf(Way way) {
  if (way == Way::TransfersFail) return kErrorTimeout;
  return way == Way::Gone ? kErrorNoDevice : kSuccess;
}

/// Which steps of an exchange fail: `count` of them from `first` on.
struct Failure {
  std::size_t first = 0;
  std::size_t count = 0;
  Way way = Way::Silence;
  bool covers(std::size_t step) const { return step >= first && step - first < count; }
};

/// Runs one exchange with a device that fails as asked for, and keeps everything that happened in one log.
class ExchangeRun : Diagnostics {
 public:
  ExchangeRun(const GoldenExchange& exchange, Failure failure) : exchange_(exchange), failure_(failure) {
    device_.onCall = [this](const FakeUsbDevice::Call& call) { note(call); };
    device_.answer = [this](const Bytes& packet) { return answerTo(packet); };
    clock_.onSleep = [this](auto duration) { log.push_back("sleep " + std::to_string(duration.count())); };
    result = exchange.run(device_, context, {clock_, *this}, &outcome);
  }

  Log log;
  _DEVICT_CONTEXT context = patternContext();
  int result = 0;
  ExchangeOutcome outcome;

 private:
  void line(std::string_view text) override { log.push_back("print " + std::string(text)); }
  static std::string hexadecimal(const Bytes& bytes) {
    std::string text;
    for (const auto byte : bytes) text += hexText(byte, 2);
    return text;
  }
  void note(const FakeUsbDevice::Call& call) {
    log.emplace_back(call.name);
    if (!call.packet.empty()) log.back() += ' ' + hexadecimal(call.packet);
  }
  Bytes answerTo(const Bytes& packet) {
    const auto& steps = exchange_.steps;
    std::size_t index = 0;
    while (index < steps.size() && steps[index].packet != hexadecimal(packet)) ++index;
    if (index == steps.size()) return {};
    const auto& step = steps[index];
    const bool failing = failure_.covers(index);
    device_.inStatus = failing ? statusOf(failure_.way) : kSuccess;
    if (failing && failure_.way == Way::Silence) return Bytes(64);

    Bytes reply = {0xAA, step.replyCode, packet[2], static_cast<std::uint8_t>(step.payload.size() + 1),
                   packet[4]};
    reply.insert(reply.end(), step.payload.begin(), step.payload.end());
    reply.resize(64);
    if (failing && failure_.way == Way::WrongClass) reply[1] ^= 0x03;
    if (failing && failure_.way == Way::WrongEcho) reply[2] ^= 0x01;
    return reply;
  }

  const GoldenExchange& exchange_;
  Failure failure_;
  FakeUsbDevice device_;
  testing::FakeClock clock_;
};

/// Failing switches end the exchange, failing blocks only cost their attempts, of which there is one when the
/// device is gone.
void expectAsLaidDown(const GoldenExchange& exchange, Failure failure) {
  Log log;
  int result = 1;
  const int attempts = failure.way == Way::Gone ? 1 : kAllAttempts;
  ExchangeOutcome outcome{.entered = true, .left = true};
  bool blocksSeen = false;
  auto record = imageOf(patternContext());
  if (exchange.writes) log.emplace_back("open");
  for (std::size_t index = 0; index < exchange.steps.size() && result == 1; ++index) {
    const auto& step = exchange.steps[index];
    const bool fails = failure.covers(index);
    for (int attempt = 0; attempt < (fails ? attempts : 1); ++attempt)
      log.insert(log.end(), {"out " + step.packet, "sleep " + std::to_string(step.delayMs), "in"});
    blocksSeen |= !step.isSwitch();
    if (!step.isSwitch()) (fails ? outcome.failed : outcome.done).add(step.content());
    if (fails) {
      log.push_back("print " + step.failure);
      outcome.lastFailure = statusOf(failure.way);
      if (!step.isSwitch()) continue;
      result = 0;
      outcome.left = false;
      outcome.entered = blocksSeen;
    } else {
      std::copy(step.recordBytes.begin(), step.recordBytes.end(), &record.at(step.recordOffset));
    }
  }
  if (exchange.writes) log.emplace_back("close");

  const ExchangeRun run(exchange, failure);
  EXPECT_EQ(run.result, result);
  EXPECT_EQ(run.outcome, outcome);
  EXPECT_EQ(run.log, log);
  EXPECT_EQ(imageOf(run.context), record);
}

TEST(Exchange, MakesItsCallsInOrderAndPrintsWhatFails) {
  for (const auto& exchange : goldenExchanges()) {
    SCOPED_TRACE(exchange.name);
    expectAsLaidDown(exchange, {});
    for (std::size_t step = 0; step < exchange.steps.size(); ++step)
      for (const auto way : {Way::Silence, Way::WrongClass, Way::WrongEcho, Way::TransfersFail, Way::Gone}) {
        SCOPED_TRACE(::testing::Message() << "step " << step + 1 << ", way " << static_cast<int>(way));
        expectAsLaidDown(exchange, {step, 1, way});
        expectAsLaidDown(exchange, {step, 99, way});
      }
  }
}

TEST(Exchange, LeavesADeviceAloneThatCannotBeOpened) {
  for (const auto save : {saveDataToIrDevice, saveDataToOptDevice}) {
    FakeUsbDevice device;
    device.onOpen = [] { return kErrorExclusiveAccess; };
    testing::FakeClock clock;
    testing::RecordingDiagnostics diagnostics;
    ExchangeOutcome outcome;
    EXPECT_EQ(save(device, patternContext(), {clock, diagnostics}, &outcome), 0);
    EXPECT_EQ(outcome, ExchangeOutcome{.opened = kErrorExclusiveAccess});
    EXPECT_THAT(device.calls, ::testing::ElementsAre(FakeUsbDevice::Call{"open", {}}));
    EXPECT_TRUE(diagnostics.lines.empty() && clock.sleeps.empty());
  }
}

/// Echoes every command with the reply code of its kind, and allocates nothing.
class EchoingDevice final : public FakeUsbDevice {
 public:
  EchoingDevice(std::uint8_t setReply, std::uint8_t getReply) : codes_{0, setReply, getReply} {
    calls.reserve(10);
  }
  Status deviceRequest(DeviceRequest& request) override {
    if ((request.bmRequestType & 0x80) != 0) {
      std::copy(reply_.begin(), reply_.end(), request.pData);
    } else {
      reply_[kKindAt] = codes_.at(request.pData[kKindAt]);
      reply_[kCommandAt] = request.pData[kCommandAt];
    }
    return kSuccess;
  }

 private:
  std::array<std::uint8_t, 3> codes_;
  PacketBuffer reply_{};
};

TEST(Exchange, AllocatesNothingWhetherItSucceedsOrFails) {
  for (const auto& exchange : goldenExchanges()) {
    const auto setReply = exchange.steps[0].replyCode, getReply = exchange.steps[2].replyCode;
    for (const auto& [setCode, getCode] :
         {std::pair(setReply, getReply), {setReply, std::uint8_t{0}}, {std::uint8_t{0}, std::uint8_t{0}}}) {
      EchoingDevice device(setCode, getCode);
      testing::FakeClock clock;
      clock.sleeps.reserve(1000);
      testing::RecordingDiagnostics diagnostics;
      diagnostics.lines.reserve(10);
      auto context = patternContext();
      const auto before = testing::allocationCount();
      const int result = exchange.run(device, context, {clock, diagnostics}, nullptr);
      EXPECT_EQ(testing::allocationCount() - before, diagnostics.lines.size()) << "the lines that are kept";
      EXPECT_EQ(result, setCode == setReply ? 1 : 0);
    }
  }
}

}  // namespace
}  // namespace touchpanel

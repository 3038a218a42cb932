#include <gmock/gmock.h>

#include "GoldenExchanges.h"
#include "Hexadecimal.h"
#include "protocol/Exchange.h"
#include "support/FakeClock.h"
#include "support/FakeUsbDevice.h"

namespace touchpanel {
namespace {

using testing::FakeUsbDevice;
using testing::GoldenExchange;
using testing::GoldenStep;
using testing::hexadecimal;
using testing::patternContext;
using Bytes = FakeUsbDevice::Bytes;
using Log = std::vector<std::string>;

constexpr int kAllAttempts = 50;

/// How a device fails a command.
enum class Way { Silence, WrongClass, WrongEcho, TransfersFail };

constexpr std::pair<Way, const char*> kWays[] = {{Way::Silence, "BySilence"},
                                                 {Way::WrongClass, "ByWrongClass"},
                                                 {Way::WrongEcho, "ByWrongEcho"},
                                                 {Way::TransfersFail, "ByFailingTransfers"}};

/// Which steps of an exchange fail: `count` of them from `first` on.
struct Failure {
  std::size_t first = 0;
  std::size_t count = 0;
  Way way = Way::Silence;
  bool covers(std::size_t step) const { return step >= first && step - first < count; }
};

class ExchangePrinter final : public Diagnostics {
 public:
  explicit ExchangePrinter(Log& log) : log_(log) {}
  void line(std::string_view text) override { log_.push_back("print " + std::string(text)); }

 private:
  Log& log_;
};

/// Runs one exchange against a device that fails as told, and keeps everything that happened in one log.
class ExchangeRun {
 public:
  ExchangeRun(const GoldenExchange& exchange, Failure failure) : exchange_(exchange), failure_(failure) {
    device_.onCall = [this](const FakeUsbDevice::Call& call) { note(call); };
    device_.answer = [this](const Bytes& packet) { return answerTo(packet); };
    clock_.onSleep = [this](auto duration) { log.push_back("sleep " + std::to_string(duration.count())); };
  }

  int run() {
    if (exchange_.name == "InfraredRead") return getIrTucParam(device_, context, ports_);
    if (exchange_.name == "InfraredWrite") return saveDataToIrDevice(device_, context, ports_);
    if (exchange_.name == "OpticalRead") return getOptTucParam(device_, context, ports_);
    return saveDataToOptDevice(device_, context, ports_);
  }

  Log log;
  _DEVICT_CONTEXT context = patternContext();

 private:
  void note(const FakeUsbDevice::Call& call) {
    using enum FakeUsbDevice::Operation;
    if (call.operation == Out) log.push_back("out " + hexadecimal(call.packet));
    if (call.operation == In) log.push_back("in");
    if (call.operation == Open) log.push_back("open");
    if (call.operation == Close) log.push_back("close");
  }
  Bytes answerTo(const Bytes& packet) {
    const auto text = hexadecimal(packet);
    std::size_t index = 0;
    while (index < exchange_.steps.size() && exchange_.steps[index].packet != text) ++index;
    if (index == exchange_.steps.size()) return {};
    const auto& step = exchange_.steps[index];
    const bool failing = failure_.covers(index);
    device_.inStatus = failing && failure_.way == Way::TransfersFail ? kErrorNoDevice : kSuccess;
    if (failing && failure_.way == Way::Silence) return Bytes(64);

    Bytes reply(64);
    reply[0] = 0xAA;
    reply[1] = step.replyCode;
    reply[2] = packet[2];
    reply[3] = static_cast<std::uint8_t>(step.replyPayload.size() + 1);
    reply[4] = packet[4];
    std::copy(step.replyPayload.begin(), step.replyPayload.end(), reply.begin() + 5);
    if (failing && failure_.way == Way::WrongClass) reply[1] ^= 0x03;
    if (failing && failure_.way == Way::WrongEcho) reply[2] ^= 0x01;
    return reply;
  }

  const GoldenExchange& exchange_;
  Failure failure_;
  FakeUsbDevice device_;
  testing::FakeClock clock_;
  ExchangePrinter printer_{log};
  ExchangePorts ports_{clock_, printer_};
};

struct Expected {
  Log log;
  int result = 1;
  std::array<std::uint8_t, kDeviceContextSize> record = imageOf(patternContext());
};

/// What has to happen: failing switches end the exchange, failing blocks only cost their attempts.
Expected expectedOf(const GoldenExchange& exchange, Failure failure) {
  Expected expected;
  if (exchange.writes) expected.log.push_back("open");
  for (std::size_t index = 0; index < exchange.steps.size(); ++index) {
    const auto& step = exchange.steps[index];
    const bool fails = failure.covers(index);
    for (int attempt = 0; attempt < (fails ? kAllAttempts : 1); ++attempt) {
      expected.log.push_back("out " + step.packet);
      expected.log.push_back("sleep " + std::to_string(step.delayMs));
      expected.log.push_back("in");
    }
    if (!fails) {
      std::copy(step.recordBytes.begin(), step.recordBytes.end(),
                expected.record.begin() + static_cast<std::ptrdiff_t>(step.recordOffset));
      continue;
    }
    expected.log.push_back("print " + step.failure);
    if (step.role == GoldenStep::Role::Block) continue;
    expected.result = 0;
    break;
  }
  if (exchange.writes) expected.log.push_back("close");
  return expected;
}

void expectAsLaidDown(const GoldenExchange& exchange, Failure failure) {
  ExchangeRun run(exchange, failure);
  const int result = run.run();
  const auto expected = expectedOf(exchange, failure);
  EXPECT_EQ(result, expected.result);
  EXPECT_EQ(run.log, expected.log);
  EXPECT_EQ(imageOf(run.context), expected.record);
}

using Parameters = std::tuple<std::size_t, std::size_t, std::size_t>;  // exchange, step, way
std::vector<Parameters> everyStepInEveryWay() {
  std::vector<Parameters> all;
  const auto exchanges = testing::goldenExchanges();
  for (std::size_t exchange = 0; exchange < exchanges.size(); ++exchange)
    for (std::size_t step = 0; step < exchanges[exchange].steps.size(); ++step)
      for (std::size_t way = 0; way < std::size(kWays); ++way) all.emplace_back(exchange, step, way);
  return all;
}
std::string nameOf(const ::testing::TestParamInfo<Parameters>& info) {
  const auto [exchange, step, way] = info.param;
  return testing::goldenExchanges()[exchange].name + "Step" + std::to_string(step + 1) + kWays[way].second;
}

class ExchangeStepFailure : public ::testing::TestWithParam<Parameters> {
 protected:
  const std::vector<GoldenExchange> exchanges_ = testing::goldenExchanges();
};
INSTANTIATE_TEST_SUITE_P(EveryStep, ExchangeStepFailure, ::testing::ValuesIn(everyStepInEveryWay()), nameOf);

TEST_P(ExchangeStepFailure, OfOneStepPrintsItsLineAndSparesTheRest) {
  const auto [exchange, step, way] = GetParam();
  expectAsLaidDown(exchanges_[exchange], {step, 1, kWays[way].first});
}

TEST_P(ExchangeStepFailure, OfEveryStepFromHereOnStillEndsTheExchange) {
  const auto [exchange, step, way] = GetParam();
  expectAsLaidDown(exchanges_[exchange], {step, 99, kWays[way].first});
}

TEST(Exchange, OfAHealthyDeviceMakesItsCallsInOrderAndPrintsNothing) {
  for (const auto& exchange : testing::goldenExchanges()) {
    SCOPED_TRACE(exchange.name);
    expectAsLaidDown(exchange, {});
  }
}

TEST(Exchange, LeavesADeviceAloneThatCannotBeOpened) {
  for (const auto save : {saveDataToIrDevice, saveDataToOptDevice}) {
    FakeUsbDevice device;
    device.onOpen = [] { return kErrorExclusiveAccess; };
    testing::FakeClock clock;
    Log log;
    ExchangePrinter printer(log);
    EXPECT_EQ(save(device, patternContext(), {clock, printer}), 0);
    EXPECT_THAT(device.calls,
                ::testing::ElementsAre(FakeUsbDevice::Call{FakeUsbDevice::Operation::Open, {}}));
    EXPECT_TRUE(log.empty() && clock.sleeps.empty());
  }
}

}  // namespace
}  // namespace touchpanel

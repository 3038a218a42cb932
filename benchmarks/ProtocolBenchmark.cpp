// What talking to a touchscreen costs beside the delays that it is given: a packet, one command on a
// transport in memory, and whole reads with a clock that really sleeps.
#include <chrono>
#include <thread>

#include <benchmark/benchmark.h>

#include "contract/DriverProperties.h"
#include "platform_build/BuildConstants.h"
#include "protocol/Exchange.h"
#include "protocol/Transport.h"
#include "providers/simulated/SimulatedUsb.h"

namespace touchpanel {
namespace {

using std::chrono_literals::operator""ms;

class NoClock final : public Clock {
 public:
  void sleep(std::chrono::milliseconds) override {}
};
class SleepingClock final : public Clock {
 public:
  void sleep(std::chrono::milliseconds duration) override { std::this_thread::sleep_for(duration); }
};
class SilentDiagnostics final : public Diagnostics {
 public:
  void line(std::string_view) override { ++lines; }
  int lines = 0;
};

/// One simulated touchscreen on a simulated bus, opened.
class AttachedDevice {
 public:
  explicit AttachedDevice(DeviceKind kind)
      : touchscreen_({"benchmark", firmware::exampleDevice(kind), {}, 0x14100000}) {
    usb_.attach(touchscreen_);
    auto& port = usb_.createNotificationPort(1);
    Dictionary matching = {{"idVendor", TOUCH_VENDOR_ID}, {"idProduct", touchscreen_.productId()}};
    UsbIterator* iterator = nullptr;
    usb_.addMatchingNotification(
        port, UsbEvent::FirstMatch, std::move(matching), [](UsbIterator&) {}, iterator);
    UsbPlugIn plugIn = 0;
    usb_.createPlugIn(iterator->next(), plugIn);
    usb_.queryDeviceInterface(plugIn, device_);
    device_->open();
  }
  UsbDeviceInterface& device() { return *device_; }

 private:
  simulated::SimulatedUsb usb_;
  simulated::SimulatedTouchscreen touchscreen_;
  UsbDeviceInterface* device_ = nullptr;
};

void BM_BuildPacket(benchmark::State& state) {
  const auto length = static_cast<std::int32_t>(state.range(0));
  const std::array<std::uint8_t, kBlockSize> payload{0x5A};
  PacketBuffer packet;
  for (auto _ : state) {
    benchmark::DoNotOptimize(buildPkg(PKT_SET, CMD_IR_SET_CALIB_X, 0, length, payload.data(), packet.data()));
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_BuildPacket)->Arg(0)->Arg(58);

void BM_OneCommandInMemory(benchmark::State& state) {
  AttachedDevice attached(DeviceKind::Infrared);
  NoClock clock;
  PacketBuffer reply;
  const std::uint8_t enter[] = {kModeCommand};
  PacketBuffer request{};
  auto size = static_cast<std::uint16_t>(buildPkg(PKT_SET, CMD_SET_MODE, 0, 1, enter, request.data()));
  if (sendCMD(attached.device(), request, reply, size, REPLY_IR, 0ms, clock) != 1)
    return state.SkipWithError("the device did not enter command mode");
  request = {};
  size = static_cast<std::uint16_t>(buildPkg(PKT_GET, CMD_IR_GET_CALIB_X, 0, 0, nullptr, request.data()));
  for (auto _ : state)
    if (sendCMD(attached.device(), request, reply, size, REPLY_IR, 0ms, clock) != 1)
      return state.SkipWithError("the device did not answer");
}
BENCHMARK(BM_OneCommandInMemory);

using Read = decltype(&getIrTucParam);

/// `overhead_percent` is the time above the sum of the delays that the exchange gives the device.
void readWhole(benchmark::State& state, DeviceKind kind, Read read, std::chrono::duration<double> delays) {
  AttachedDevice attached(kind);
  SleepingClock clock;
  SilentDiagnostics diagnostics;
  std::chrono::duration<double> total{0};
  for (auto _ : state) {
    _DEVICT_CONTEXT context{};
    const auto start = std::chrono::steady_clock::now();
    const int result = read(attached.device(), context, {clock, diagnostics}, nullptr);
    total += std::chrono::steady_clock::now() - start;
    if (result != 1 || diagnostics.lines != 0) return state.SkipWithError("the read failed");
  }
  const auto mean = total / static_cast<double>(state.iterations());
  state.counters["overhead_percent"] = 100 * (mean - delays) / delays;
}

void BM_WholeInfraredRead(benchmark::State& state) {
  readWhole(state, DeviceKind::Infrared, getIrTucParam, 360ms);
}
void BM_WholeOpticalRead(benchmark::State& state) {
  readWhole(state, DeviceKind::Optical, getOptTucParam, 590ms);
}
BENCHMARK(BM_WholeInfraredRead)->Iterations(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_WholeOpticalRead)->Iterations(10)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace touchpanel

// The registry port over a real bus: the driver service on one side, the control panel's client on the other.
#include <mutex>
#include <thread>

#include <gtest/gtest.h>
#include <poll.h>
#include <sdbus-c++/sdbus-c++.h>
#include <sys/eventfd.h>

#include "contract/ProductId.h"
#include "driver/service/DriverService.h"
#include "providers/linux/dbus/DriverServiceClient.h"
#include "providers/linux/loop/FileDescriptor.h"
#include "support/FakePropertyListFiles.h"
#include "support/FakeServicePorts.h"
#include "support/PrivateBus.h"
#include "support/RecordingDiagnostics.h"
#include "support/contracts/RegistryContract.h"
#include "touchdriverd/BusService.h"

namespace touchpanel::testing {
namespace {

using driver::DriverService;

/// The driver service on the session bus, with invented touchscreens, in a thread of its own.
class ServedDrivers {
 public:
  ServedDrivers() : connected_(bus_.connect()) {}
  ~ServedDrivers() {
    thread_.request_stop();
    wake();
  }
  ServedDrivers(const ServedDrivers&) = delete;
  ServedDrivers& operator=(const ServedDrivers&) = delete;

  /// Answers nobody while the result lives.
  std::unique_lock<std::mutex> hang() {
    std::unique_lock held(mutex_);
    wake();
    return held;
  }
  bool connectAgain() {
    const auto held = hang();
    return connected_ = bus_.connect();
  }
  void plugIn(std::uint32_t locationId) {
    const auto held = hang();
    service_.touchscreenArrived(deviceAt(locationId), {locationId, kProductConfigurationOnly});
    service_.nodeArrived(deviceAt(locationId), nodeAt(locationId));
  }
  void pullOut(std::uint32_t locationId) {
    const auto held = hang();
    service_.touchscreenLeft(deviceAt(locationId));
  }
  void tap(std::uint32_t locationId, std::chrono::seconds at, std::int32_t x, std::int32_t y) {
    const auto held = hang();
    inputs_.touch(nodeAt(locationId), {at, 1, {{{0, x, y}}}});
    inputs_.touch(nodeAt(locationId), {at + std::chrono::milliseconds(8), 0, {}});
  }

  RecordingDiagnostics diagnostics;

 private:
  static std::string deviceAt(std::uint32_t locationId) { return "/sys/" + std::to_string(locationId); }
  static std::string nodeAt(std::uint32_t locationId) { return "/dev/input/" + std::to_string(locationId); }
  void wake() const { ::eventfd_write(wake_.get(), 1); }
  void serve(const std::stop_token& stop) {
    while (!stop.stop_requested()) {
      pollfd waited[2] = {{wake_.get(), POLLIN, 0}, {-1, 0, 0}};
      int timeout = -1;
      {
        const std::lock_guard lock(mutex_);
        connected_ = connected_ && bus_.process();
        if (connected_) {
          const auto data = bus_.pollData();
          waited[1] = {data.fd, data.events, 0};
          timeout = data.getPollTimeout();
        }
      }
      ::poll(waited, 2, timeout);
      eventfd_t ignored = 0;
      ::eventfd_read(wake_.get(), &ignored);
    }
  }

  FakeTouchInputs inputs_;
  FakePointerDevices pointers_;
  FakeTimers timers_;
  FakeCalibrationReader reader_;
  FakePropertyListFiles files_;
  driver::StateStore store_{files_, "/state", diagnostics};
  DriverService service_{{inputs_, pointers_, timers_, reader_, diagnostics}, store_};
  driver::BusService bus_{service_, Bus::Session, bus_name::kDevelopmentService, diagnostics};
  FileDescriptor wake_{::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
  std::mutex mutex_;
  bool connected_;
  std::jthread thread_{[this](const std::stop_token& stop) { serve(stop); }};
};

class ServiceWorld final : public RegistryWorld {
 public:
  Registry& registry() override { return registry_; }
  void publish(std::uint32_t locationId) override { served_.plugIn(locationId); }
  void withdraw(std::uint32_t locationId) override { served_.pullOut(locationId); }
  RawPoint touch(std::uint32_t locationId) override {
    touches_ += 1;
    const RawPoint point{1000 + 10 * touches_, 2000 + 10 * touches_};
    served_.tap(locationId, std::chrono::seconds(touches_), point.x, point.y);
    return point;
  }

 private:
  PrivateBus bus_;
  ServedDrivers served_;
  RecordingDiagnostics diagnostics_;
  DriverServiceClient registry_{diagnostics_, Bus::Session, bus_name::kDevelopmentService};
  std::int32_t touches_ = 0;
};

INSTANTIATE_TEST_SUITE_P(DriverService, RegistryContract, ::testing::Values(RegistryProvider{[] {
                           return std::make_unique<ServiceWorld>();
                         }}));

class DriverServiceClientTest : public ::testing::Test {
 protected:
  static constexpr std::uint32_t kHere = 0x80110000;

  void restart() {
    served.reset();
    served = std::make_unique<ServedDrivers>();
  }
  static RegistryObject find(Registry& from) {
    const auto found = from.instancesOf(class_name::kTouchDriver);
    return found.empty() ? 0 : found[0];
  }
  template <typename Condition>
  static bool happens(Condition condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition() && std::chrono::steady_clock::now() < end) std::this_thread::yield();
    return condition();
  }
  Status probe(RegistryObject object) {
    return registry.setProperty(object, property::kCalibration, Dictionary());
  }

  PrivateBus bus;
  std::unique_ptr<ServedDrivers> served = std::make_unique<ServedDrivers>();
  RecordingDiagnostics diagnostics;
  DriverServiceClient registry{diagnostics, Bus::Session, bus_name::kDevelopmentService};
};

TEST_F(DriverServiceClientTest, FindsNothingAndSaysNothingWhereThereIsNoService) {
  served.reset();
  EXPECT_EQ(find(registry), 0U);
  bus.stop();
  EXPECT_EQ(find(registry), 0U);
  EXPECT_EQ(probe(1), kErrorNoDevice);
  EXPECT_TRUE(diagnostics.lines.empty());
}

TEST_F(DriverServiceClientTest, TakesOldHandlesForDeadAfterTheServiceRestarted) {
  served->plugIn(kHere);
  const auto before = find(registry);
  ASSERT_EQ(probe(before), kSuccess);
  restart();
  served->plugIn(kHere);
  EXPECT_EQ(probe(before), kErrorNoDevice) << "the new run's object has the same path";
  EXPECT_FALSE(registry.properties(before));
  const auto after = find(registry);
  EXPECT_NE(after, before);
  EXPECT_EQ(probe(after), kSuccess);
}

TEST_F(DriverServiceClientTest, OutlivesTheBusItself) {
  served->plugIn(kHere);
  const auto before = find(registry);
  bus.stop();
  EXPECT_NE(probe(before), kSuccess);
  EXPECT_EQ(find(registry), 0U);
  bus.start();
  ASSERT_TRUE(served->connectAgain());
  EXPECT_EQ(probe(find(registry)), kSuccess);
  EXPECT_EQ(probe(before), kErrorNoDevice) << "the new bus gives out the same client names again";
}

TEST_F(DriverServiceClientTest, WaitsOnlySoLongForAServiceThatHangs) {
  served->plugIn(kHere);
  DriverServiceClient impatient(diagnostics, Bus::Session, bus_name::kDevelopmentService,
                                std::chrono::milliseconds(50));
  RegistryObject object = 0;
  ASSERT_TRUE(happens([&] { return (object = find(impatient)) != 0; }))
      << "a busy machine may need several tries";
  diagnostics.lines.clear();
  const auto held = served->hang();
  EXPECT_EQ(impatient.setProperty(object, property::kCalibration, Dictionary()), kErrorTimeout);
  EXPECT_EQ(find(impatient), 0U);
  EXPECT_EQ(diagnostics.lines.size(), 1U);
}

TEST_F(DriverServiceClientTest, EndsTheCaptureOfAClientThatVanishes) {
  served->plugIn(kHere);
  {
    DriverServiceClient dying(diagnostics, Bus::Session, bus_name::kDevelopmentService);
    const Dictionary capture{{calibration_key::kStatCalibrate, true}};
    ASSERT_EQ(dying.setProperty(find(dying), property::kCalibration, capture), kSuccess);
  }
  const auto object = find(registry);
  EXPECT_TRUE(happens([&] {
    return !registry.properties(object)
                ->dictionary(property::kCalibration)
                ->boolean(calibration_key::kStatCalibrate);
  }));
}

/// What a client that speaks the bus directly, as one of another make or version would, gets for a call.
template <typename... Arguments>
std::string errorOf(const std::string& path, const char* interface, const char* method,
                    Arguments... arguments) {
  auto connection = sdbus::createSessionBusConnection();
  auto proxy = sdbus::createProxy(*connection, bus_name::kDevelopmentService, path);
  try {
    proxy->callMethod(method).onInterface(interface).withArguments(arguments...);
  } catch (const sdbus::Error& error) {
    return error.getName();
  }
  return "";
}

TEST_F(DriverServiceClientTest, ForeignClientsAreRefusedByNameWhateverTheySend) {
  EXPECT_EQ(errorOf(bus_name::kRootPath, "com.VARNEXO.TouchDriver1.Registry", "InstancesOf", std::uint32_t{2},
                    std::string(class_name::kTouchDriver)),
            bus_name::kInterfaceVersionError);
  served->plugIn(kHere);
  using Settings = std::map<std::string, sdbus::Variant>;
  const auto mode = [](const auto& value) {
    return sdbus::Variant(Settings{{"mode", sdbus::Variant(value)}});
  };
  const sdbus::Variant shortParams(Settings{{"calibParams", sdbus::Variant(std::vector<std::uint8_t>(115))}});
  const std::tuple<std::string, sdbus::Variant, std::string> writes[] = {
      {"configration", sdbus::Variant(std::uint32_t{3}), bus_name::kBadArgumentError},
      {"configration", mode(std::uint32_t{1}), bus_name::kBadArgumentError},
      {"configration", mode(sdbus::make_struct(1, 2)), bus_name::kBadArgumentError},
      {"configration", sdbus::Variant(std::map<std::string, std::int32_t>{{"mode", 1}}),
       bus_name::kBadArgumentError},
      {"configration", sdbus::Variant(std::vector<std::int32_t>{1, 2}), bus_name::kBadArgumentError},
      {"calibration", shortParams, bus_name::kBadArgumentError},
      {"colour", mode(1), bus_name::kUnsupportedError},
      {"configration", mode(1), ""}};
  for (const auto& [name, value, error] : writes)
    EXPECT_EQ(errorOf(std::string(bus_name::kObjectsPath) + "/256", "com.VARNEXO.TouchDriver1.Object",
                      "SetProperty", name, value),
              error);
  EXPECT_EQ(registry.properties(find(registry))->dictionary("configration")->integer("mode"), 1);
}

}  // namespace
}  // namespace touchpanel::testing

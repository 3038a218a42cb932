// The registry port over a real bus: the driver service on one side, the control panel's client on the other.
#include <mutex>
#include <numeric>
#include <thread>

#include <gmock/gmock.h>
#include <poll.h>
#include <sdbus-c++/sdbus-c++.h>
#include <sys/eventfd.h>

#include "contract/DriverProperties.h"
#include "contract/ProductId.h"
#include "driver/service/DriverService.h"
#include "providers/linux/dbus/DriverServiceClient.h"
#include "providers/linux/dbus/FilesThroughService.h"
#include "providers/linux/loop/FileDescriptor.h"
#include "support/FakeFileWorker.h"
#include "support/FakePropertyListFiles.h"
#include "support/FakeServicePorts.h"
#include "support/PrivateBus.h"
#include "support/RecordingDiagnostics.h"
#include "touchdriverd/BusService.h"

namespace touchpanel::testing {
namespace {

using driver::DriverService;
using ::testing::_;
using ::testing::ElementsAre;
using ::testing::StartsWith;

/// The driver service on the session bus, with invented touchscreens, in a thread of its own.
class ServedDrivers {
 public:
  explicit ServedDrivers(driver::Trust trust = driver::trustInRootAnd(""))
      : bus_(service_, panelFiles_, Bus::Session, bus_name::kDevelopmentService, std::move(trust),
             diagnostics),
        connected_(bus_.connect()) {}
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
    service_.touchscreenArrived(std::to_string(locationId), {locationId, kProductConfigurationOnly});
  }
  void pullOut(std::uint32_t locationId) {
    const auto held = hang();
    service_.touchscreenLeft(std::to_string(locationId));
  }
  RecordingDiagnostics diagnostics;
  FakePropertyListFiles files;

 private:
  void wake() const { ::eventfd_write(wake_.get(), 1); }
  void serve(const std::stop_token& stop) {
    while (!stop.stop_requested()) {
      pollfd waited[2] = {{wake_.get(), POLLIN, 0}, {-1, 0, 0}};
      int timeout = -1;
      {
        const std::lock_guard lock(mutex_);
        connected_ = connected_ && bus_.process();
        worker_.finish();
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
  FakeTouchThread touches_;
  FakeNotices notices_;
  FakeOutputDevices outputs_;
  FakeTimers timers_;
  FakeCalibrationReader reader_;
  FakeFileWorker worker_;
  driver::StateStore store_{files, worker_, "/state", diagnostics};
  DriverService service_{{touches_, inputs_, outputs_, timers_, notices_, reader_, diagnostics}, store_};
  driver::PanelFiles panelFiles_{files, worker_, "/config"};
  driver::BusService bus_;
  FileDescriptor wake_{::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
  std::mutex mutex_;
  bool connected_;
  std::jthread thread_{[this](const std::stop_token& stop) { serve(stop); }};
};

class DriverServiceClientTest : public ::testing::Test {
 protected:
  static constexpr std::uint32_t kHere = 0x14100000;
  static constexpr std::uint32_t kThere = 0x94220000;  // with the highest bit set: ids are not signed

  static std::vector<RegistryObject> drivers(Registry& from) {
    return from.instancesOf(class_name::kTouchDriver);
  }
  static RegistryObject find(Registry& from) {
    const auto found = drivers(from);
    return found.empty() ? 0 : found.back();
  }
  RegistryObject published(std::uint32_t locationId) {
    served->plugIn(locationId);
    return find(registry);
  }
  Dictionary group(RegistryObject object, std::string_view name) {
    const auto properties = registry.properties(object);
    const auto* found = properties ? properties->dictionary(name) : nullptr;
    return found ? *found : Dictionary();
  }
  template <typename Condition>
  static bool happens(Condition condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition() && std::chrono::steady_clock::now() < end) std::this_thread::yield();
    return condition();
  }
  Status capture(RegistryObject object, bool on) {
    return registry.setProperty(object, property::kCalibration,
                                Dictionary{{calibration_key::kStatCalibrate, on}});
  }
  bool captures(RegistryObject object) {
    return group(object, property::kCalibration).boolean(calibration_key::kStatCalibrate);
  }
  Status probe(RegistryObject object) {
    return registry.setProperty(object, property::kCalibration, Dictionary());
  }

  PrivateBus bus;
  std::unique_ptr<ServedDrivers> served = std::make_unique<ServedDrivers>();
  RecordingDiagnostics diagnostics;
  DriverServiceClient registry{diagnostics, Bus::Session, bus_name::kDevelopmentService};
};

TEST_F(DriverServiceClientTest, ListsDriverInstancesByArrivalWithALocationAndAHidSystemBelowEach) {
  EXPECT_TRUE(drivers(registry).empty());
  const auto first = published(kThere);
  const auto second = published(kHere);
  EXPECT_EQ(drivers(registry), (std::vector{first, second})) << "a handle stays the same";
  EXPECT_TRUE(first != second && first != 0 && second != 0);
  EXPECT_TRUE(registry.instancesOf("SomethingElse").empty());
  for (const auto& [driver, location] : {std::pair{first, kThere}, std::pair{second, kHere}}) {
    EXPECT_TRUE(registry.conformsTo(driver, class_name::kTouchDriver));
    EXPECT_FALSE(registry.conformsTo(driver, class_name::kPointingDevice));
    const auto children = registry.childrenOf(driver);
    ASSERT_EQ(children.size(), 2U);
    EXPECT_TRUE(registry.conformsTo(children[0], class_name::kPointingDevice));
    EXPECT_TRUE(registry.conformsTo(children[1], class_name::kHidSystem));
    EXPECT_TRUE(registry.childrenOf(children[0]).empty());
    EXPECT_EQ(registry.properties(children[0]),
              (Dictionary{{property::kLocationID, std::int64_t{location}}}));
  }
}

TEST_F(DriverServiceClientTest, HandsAMessageToItsTouchscreenAloneAndGivesItBackByteForByte) {
  const auto here = published(kHere);
  const auto hid = registry.childrenOf(here).at(1);
  const auto other = published(kThere);
  const auto others = registry.properties(other);
  Bytes params(116);
  std::iota(params.begin(), params.end(), std::uint8_t{0x7F});
  const std::pair<const char*, Dictionary> messages[] = {
      {property::kConfigration, {{configration_key::kMode, 3}, {configration_key::kEnableTouch, false}}},
      {property::kCalibration, {{calibration_key::kMinX, 9}, {calibration_key::kCalibParams, params}}}};
  for (const auto& [name, message] : messages) {
    auto expected = group(here, name);
    EXPECT_EQ(registry.setProperty(here, name, message), kSuccess);
    for (const auto& [key, value] : message) expected.set(key, value);
    EXPECT_EQ(registry.setProperty(here, name, 1), kErrorBadArgument);
    EXPECT_EQ(registry.setProperty(here, name, Dictionary()), kSuccess) << "a sign of life";
    EXPECT_EQ(group(here, name), expected);
  }
  EXPECT_EQ(registry.setProperty(here, "configuration", Dictionary()), kErrorUnsupported);
  EXPECT_EQ(registry.properties(other), others);

  EXPECT_EQ(registry.setProperty(hid, property::kHidClickTime, 700'000'000), kSuccess);
  EXPECT_EQ(registry.setProperty(hid, property::kHidClickSpace, Array{6, 7}), kSuccess);
  EXPECT_EQ(group(hid, property::kHidParameters),
            (Dictionary{{property::kHidClickSpace, Array{6, 7}},
                        {property::kHidClickTime, std::int64_t{700'000'000}}}));
}

TEST_F(DriverServiceClientTest, FindsNothingBehindAHandleThatIsGoneAndNeverGivesItAway) {
  const auto driver = published(kHere);
  const auto other = published(kThere);
  const auto children = registry.childrenOf(driver);
  served->pullOut(kHere);
  EXPECT_EQ(drivers(registry), std::vector{other});
  EXPECT_EQ(probe(published(kHere)), kSuccess);
  EXPECT_TRUE(registry.childrenOf(driver).empty());
  for (const auto object : {driver, children.at(0), children.at(1), RegistryObject{0}, ~RegistryObject{0}}) {
    EXPECT_EQ(registry.properties(object), std::nullopt);
    EXPECT_FALSE(registry.conformsTo(object, class_name::kTouchDriver));
    EXPECT_EQ(probe(object), kErrorNoDevice);
  }
}

TEST_F(DriverServiceClientTest, LeadsEachHandleToItsPlaceInARestartedServiceAndNeverToAnother) {
  constexpr std::uint32_t kElsewhere = 0x24300000;
  const auto there = published(kThere);
  const auto here = published(kHere);
  const auto pointingDevice = registry.childrenOf(here).at(0);
  const auto hid = registry.childrenOf(here).at(1);
  const auto hidThere = registry.childrenOf(there).at(1);
  const auto pulledOut = published(kElsewhere);
  served->pullOut(kElsewhere);
  const auto replugged = published(kElsewhere);

  served.reset();
  for (const auto object : {there, here, pointingDevice, hid, hidThere, replugged}) {
    EXPECT_EQ(probe(object), kErrorNotResponding);
    EXPECT_EQ(registry.properties(object), std::nullopt);
  }
  EXPECT_THAT(diagnostics.lines, ElementsAre(StartsWith("The touch driver service does not answer: ")));

  served = std::make_unique<ServedDrivers>();
  served->plugIn(kElsewhere);  // has the paths that kThere had
  served->plugIn(kHere);
  const Dictionary message{{configration_key::kMode, 3}};
  EXPECT_EQ(registry.setProperty(here, property::kConfigration, message), kSuccess);
  EXPECT_EQ(registry.properties(pointingDevice), (Dictionary{{property::kLocationID, std::int64_t{kHere}}}));
  EXPECT_EQ(registry.setProperty(hid, property::kHidClickTime, 600'000'000), kSuccess);
  EXPECT_THAT(registry.childrenOf(here), ElementsAre(pointingDevice, hid));
  EXPECT_THAT(diagnostics.lines, ElementsAre(_, "The touch driver service answers."));
  EXPECT_THAT(drivers(registry), ElementsAre(replugged, here));
  EXPECT_NE(group(replugged, property::kConfigration).integer(configration_key::kMode), 3);
  for (const auto gone : {there, hidThere, pulledOut}) EXPECT_EQ(probe(gone), kErrorNoDevice);
  const auto since = published(kThere);
  for (const auto gone : {there, hidThere, pulledOut}) {
    EXPECT_EQ(probe(gone), kErrorNoDevice) << "what was plugged in since is another touchscreen";
    EXPECT_NE(gone, since);
  }
}

TEST_F(DriverServiceClientTest, ResumesTheCaptureOfACalibrationThatOutlivesTheService) {
  const auto endedMeanwhile = published(kThere);
  const auto goesOn = published(kHere);
  for (const auto object : {endedMeanwhile, goesOn}) EXPECT_EQ(capture(object, true), kSuccess);
  served.reset();
  EXPECT_EQ(capture(endedMeanwhile, false), kErrorNotResponding);
  served = std::make_unique<ServedDrivers>();
  served->plugIn(kHere);
  served->plugIn(kThere);
  EXPECT_TRUE(captures(goesOn));
  EXPECT_FALSE(captures(endedMeanwhile));
  EXPECT_EQ(capture(goesOn, false), kSuccess);
  EXPECT_FALSE(captures(goesOn));
}

TEST_F(DriverServiceClientTest, OutlivesTheBus) {
  const auto object = published(kHere);
  bus.stop();
  EXPECT_EQ(probe(object), kErrorNotResponding);
  EXPECT_EQ(find(registry), 0U);
  EXPECT_EQ(probe(object), kErrorNotResponding);
  bus.start();
  EXPECT_EQ(registry.availability(), kErrorNotResponding) << "the bus is there and the service is not";
  ASSERT_TRUE(served->connectAgain());
  EXPECT_EQ(probe(object), kSuccess);
  EXPECT_EQ(registry.availability(), kSuccess);
  EXPECT_EQ(find(registry), object);
  EXPECT_EQ(diagnostics.lines.size(), 2U);
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
  EXPECT_EQ(impatient.setProperty(object, property::kCalibration, Dictionary()), kErrorNotResponding);
  EXPECT_EQ(find(impatient), 0U);
  EXPECT_EQ(diagnostics.lines.size(), 1U);
}

TEST_F(DriverServiceClientTest, EndsTheCaptureOfAClientThatVanishes) {
  served->plugIn(kHere);
  {
    DriverServiceClient dying(diagnostics, Bus::Session, bus_name::kDevelopmentService);
    const Dictionary capturing{{calibration_key::kStatCalibrate, true}};
    ASSERT_EQ(dying.setProperty(find(dying), property::kCalibration, capturing), kSuccess);
  }
  const auto object = find(registry);
  EXPECT_TRUE(happens([&] { return !captures(object); }));
}

TEST_F(DriverServiceClientTest, AnnouncesWhoComesAndGoesAndWhatIsWrittenButNoProbe) {
  const auto connection = sdbus::createSessionBusConnection();
  const auto proxy = sdbus::createProxy(*connection, bus_name::kDevelopmentService, bus_name::kRootPath);
  int changes = 0;
  proxy->uponSignal("Changed").onInterface("com.VARNEXO.TouchDriver1.Registry").call([&] { ++changes; });
  proxy->finishRegistration();
  const auto heardSoFar = [&] {
    // Whatever was sent before this answer has arrived before it.
    proxy->callMethod("InstancesOf")
        .onInterface("com.VARNEXO.TouchDriver1.Registry")
        .withArguments(std::uint32_t{1}, std::string(class_name::kTouchDriver));
    while (connection->processPendingRequest()) {
    }
    return std::exchange(changes, 0);
  };
  const auto object = published(kHere);
  EXPECT_GE(heardSoFar(), 1);
  EXPECT_EQ(probe(object), kSuccess);
  EXPECT_EQ(registry.setProperty(object, property::kConfigration, Dictionary()), kSuccess);
  EXPECT_EQ(heardSoFar(), 0) << "a run probes with each draw";
  registry.setProperty(object, property::kConfigration, Dictionary{{configration_key::kMode, 3}});
  EXPECT_EQ(heardSoFar(), 1);
  served->pullOut(kHere);
  EXPECT_GE(heardSoFar(), 1);
}

TEST_F(DriverServiceClientTest, IsToldWhenItMayNotWriteAndLooksAllTheSame) {
  served.reset();
  served = std::make_unique<ServedDrivers>(driver::Trust());
  const auto object = published(kHere);
  EXPECT_EQ(capture(object, true), kErrorNotPermitted);
  EXPECT_FALSE(captures(object));
  EXPECT_EQ(registry.writeFile("com.VARNEXO.Device.Config.plist", {}), kErrorNotPermitted);
  EXPECT_EQ(probe(object), kSuccess) << "a sign of life";
}

TEST_F(DriverServiceClientTest, HasTheServiceWriteTheTwoFilesAndNothingElse) {
  constexpr char kDevice[] = "com.VARNEXO.Device.Config.plist";
  constexpr char kDriver[] = "com.VARNEXO.Driver.Config.plist";
  const Dictionary calibration{{"CalibrateStatus", true}, {"CalibParams", Bytes(116, 7)}};
  Dictionary settings;
  for (const auto& setting : kSettingsInFile) settings.set(setting.key, valueOf(TouchSettings(), setting));
  auto tooMuch = settings;
  tooMuch.set("TouchMode", 4);
  FakePropertyListFiles own;
  own.writeStatus = kErrorNotPermitted;
  FilesThroughService files(own, registry);
  EXPECT_EQ(files.writeAtomically("/config/" + std::string(kDevice), calibration), kSuccess);
  EXPECT_EQ(files.writeAtomically("/config/" + std::string(kDriver), settings), kSuccess);
  EXPECT_EQ(served->files.files.at("/config/" + std::string(kDevice)), calibration);
  EXPECT_EQ(served->files.files.at("/config/" + std::string(kDriver)), settings)
      << "in the file's order, too";
  for (const auto& [name, contents, status] :
       {std::tuple{"../config/" + std::string(kDevice), calibration, kErrorUnsupported},
        {kDevice, settings, kErrorBadArgument},
        {kDevice, {{"CalibrateStatus", true}, {"CalibParams", Bytes(115)}}, kErrorBadArgument},
        {kDriver, {{"TouchMode", 1}}, kErrorBadArgument},
        {kDriver, tooMuch, kErrorBadArgument}})
    EXPECT_EQ(registry.writeFile(name, contents), status) << name;
  EXPECT_EQ(served->files.files.size(), 2U);
}

TEST_F(DriverServiceClientTest, RefusesByNameWhateverClientsOfOtherMakesAndVersionsSend) {
  served->plugIn(kHere);
  const auto connection = sdbus::createSessionBusConnection();
  const auto errorOf = [&](const char* path, const char* interface, const char* method,
                           const auto&... arguments) -> std::string {
    const auto proxy = sdbus::createProxy(*connection, bus_name::kDevelopmentService, path);
    try {
      proxy->callMethod(method).onInterface(interface).withArguments(arguments...);
    } catch (const sdbus::Error& error) {
      return error.getName();
    }
    return "";
  };
  EXPECT_EQ(errorOf(bus_name::kRootPath, "com.VARNEXO.TouchDriver1.Registry", "InstancesOf", std::uint32_t{2},
                    std::string(class_name::kTouchDriver)),
            bus_name::kInterfaceVersionError);
  const auto mode = [](const auto& value) {
    return sdbus::Variant(std::map<std::string, sdbus::Variant>{{"mode", sdbus::Variant(value)}});
  };
  const std::pair<sdbus::Variant, std::string> writes[] = {
      {mode(std::uint32_t{1}), bus_name::kBadArgumentError},
      {mode(sdbus::make_struct(1, 2)), bus_name::kBadArgumentError},
      {sdbus::Variant(std::map<std::string, std::int32_t>{{"mode", 1}}), bus_name::kBadArgumentError},
      {sdbus::Variant(std::vector<std::int32_t>{1, 2}), bus_name::kBadArgumentError},
      {mode(1), ""}};
  constexpr char kObject[] = "/com/VARNEXO/TouchDriver1/objects/256";
  constexpr char kInterface[] = "com.VARNEXO.TouchDriver1.Object";
  for (const auto& [value, error] : writes)
    EXPECT_EQ(errorOf(kObject, kInterface, "SetProperty", std::string("configration"), value), error);
  EXPECT_EQ(group(find(registry), "configration").integer("mode"), 1);
  EXPECT_EQ(errorOf(kObject, kInterface, "ConformsTo", std::string(1U << 20U, 'x')),
            bus_name::kBadArgumentError)
      << "refused before it is taken apart";
  EXPECT_EQ(errorOf(kObject, kInterface, "ConformsTo", std::string(1U << 10U, 'x')), "");
  served->pullOut(kHere);
  EXPECT_EQ(errorOf(kObject, kInterface, "Properties"), "org.freedesktop.DBus.Error.UnknownObject");
}

}  // namespace
}  // namespace touchpanel::testing

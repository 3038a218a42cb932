#include <random>

#include "DiscoveryRig.h"
#include "discovery/DeviceList.h"
#include "platform_build/BuildConstants.h"
#include "protocol/Packet.h"

namespace touchpanel::testing {
namespace {

using namespace std::chrono_literals;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using Locations = std::vector<std::uint32_t>;

constexpr std::uint16_t kPlain = kProductConfigurationOnly;  // needs no exchange, so its journal is short
constexpr char kReadFailed[] = "alert Error: To get the device parameters failed, please try again. [OK]";

struct Registering : ::testing::Test, DiscoveryRig {};
struct DeviceArrival : Registering {};
struct UnconfiguredDevice : Registering {};
struct ApplicationEnding : Registering {};
struct DeviceRemoval : Registering {};

TEST_F(Registering, AsksForEveryProductInOrderAndServesThePort) {
  registry.addDriver(1);
  EXPECT_TRUE(start());
  std::vector<FakeUsb::Request> expected;
  for (const int product : {0x0001, 0x0C20, 0x0080, 0x0085, 0x0086, 0x0087})
    for (const auto event : {UsbEvent::FirstMatch, UsbEvent::Terminate})
      expected.push_back({event, {{"idVendor", std::int32_t{TOUCH_VENDOR_ID}}, {"idProduct", product}}});
  EXPECT_EQ(usb.requests, expected);
  EXPECT_THAT(runLoop.sources, ElementsAre(process.runLoopSource));
  EXPECT_EQ(usb.releasedMasterPorts, 1);
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(Registering, ReportsAMissingMasterPortOrDictionaryAndDoesNoMore) {
  struct Case {
    Status masterPortStatus;
    MasterPort masterPort;
    const char* report;
    int releases;
  };
  for (const auto& failing :
       {Case{kErrorNoMemory, 1, "print ERR: Couldn't create a master I/O Kit port(e0000009)", 0},
        Case{kSuccess, 0, "print ERR: Couldn't create a master I/O Kit port(00000000)", 0},
        Case{kSuccess, 1, "print Can't create a USB matching dictionary", 1}}) {
    journal.clear();
    usb.masterPortStatus = failing.masterPortStatus;
    usb.masterPortValue = failing.masterPort;
    usb.canMatch = false;
    EXPECT_FALSE(start());
    EXPECT_EQ(journal, Journal{failing.report});
    EXPECT_EQ(usb.releasedMasterPorts, failing.releases);
    EXPECT_THAT(usb.requests, IsEmpty());
  }
}

TEST_F(Registering, StopsSilentlyAtTheFirstNotificationThatIsRefused) {
  for (std::size_t refused = 0; refused < 12; ++refused) {
    DiscoveryRig rig;
    rig.attached(0x10, kPlain);
    rig.attached(0x20, kProductOptical);
    rig.usb.requestsUntilFailure = refused;
    EXPECT_FALSE(rig.start());
    EXPECT_EQ(rig.usb.requests.size(), refused);
    EXPECT_THAT(rig.alerts.panels, IsEmpty());
    EXPECT_EQ(rig.owner.list.size(), std::min<std::size_t>(refused / 2, 2)) << "of complete pairs";
  }
}

TEST_F(Registering, EndsTheApplicationOnceWhenThereIsNoDriver) {
  usb.plugIn(make(0x10, kPlain).device);
  EXPECT_FALSE(start());
  EXPECT_EQ(journal, Journal{"alert Warning: Not found touch device. [OK]"});
  EXPECT_TRUE(application.isTerminated);
  EXPECT_EQ(usb.requests.size(), 2U) << "nothing more was registered";
}

TEST_F(DeviceArrival, GoesThroughEveryStepInOrder) {
  const auto& [firmware, device, driver] = attached(0x10, kPlain);
  start();
  EXPECT_EQ(journal,
            (Journal{"create plug-in", "release service", "query", "destroy plug-in", "open", "configuration",
                     "location", "vendor", "product", "sleep 500", "vendor", "product", "reload", "close"}));
  EXPECT_EQ(listedLocations(), Locations{0x10});
  EXPECT_EQ(process.devIntf, &device);
  EXPECT_FALSE(device.isReleased) << "the entry refers to it";
  EXPECT_EQ(owner.list.front()->integer("DeviceInterface"), device.ownReference);
  EXPECT_EQ(registryObjectOf(*owner.list.front(), "Handle"), driver);
  EXPECT_FALSE(waitNotice.isShown);
}

TEST_F(DeviceArrival, ReportsEachFailingStepAndGoesOnWithTheNextDevice) {
  struct Case {
    const char* name;
    std::function<void(DiscoveryRig&, Touchscreen&)> fail;
    Journal journal;
    NotListed refusal = {};
  };
  using Why = NotListed::Why;
  const Journal way = {"create plug-in", "release service", "query",  "destroy plug-in", "open",
                       "configuration",  "location",        "vendor", "product",         "sleep 500"};
  const auto upTo = [&](std::size_t steps, const Journal& rest) {
    Journal whole(way.begin(), way.begin() + static_cast<std::ptrdiff_t>(steps));
    whole.insert(whole.end(), rest.begin(), rest.end());
    return whole;
  };
  const Case cases[] = {
      {"no plug-in",
       [](auto& rig, auto&) { rig.usb.failures["create plug-in"] = kSuccess; },
       upTo(2, {"print Unable to create a plug-in (00000000)"}),
       {Why::CannotBeOpened}},
      {"service gone when released",
       [](auto& rig, auto&) { rig.usb.failures["release service"] = kErrorNoDevice; },
       upTo(2, {"print Unable to create a plug-in (e0000002)"}),
       {Why::CannotBeOpened, kErrorNoDevice}},
      {"interface query fails",
       [](auto& rig, auto&) { rig.usb.failures["query"] = kErrorNoMemory; },
       upTo(4, {"print couldn't create a device interface (e0000009)"}),
       {Why::CannotBeOpened, kErrorNoMemory}},
      {"no interface",
       [](auto& rig, auto&) { rig.usb.failures["query"] = kSuccess; },
       upTo(4, {"print couldn't create a device interface (00000000)"}),
       {Why::CannotBeOpened}},
      {"no driver instance at its location",
       [](auto& rig, auto& failing) { rig.registry.remove(failing.driver); },
       upTo(10, {"close"}),
       {Why::NoDriverInstance}},
      {"unknown product", [](auto&, auto& failing) { failing.device.productId = 0x0099; },
       upTo(10, {kReadFailed, "close"})},
      {"parameters cannot be read",
       [](auto&, auto& failing) {
         failing.device.productId = kProductInfrared0080;
         failing.device.outStatus = kErrorStalled;
       },
       upTo(10, {"print To set the touchscreen to the diagnosis mode failed.", kReadFailed, "close"})},
      {"driver settings file lacks a key",
       [](auto& rig, auto& failing) {
         failing.device.onCall = [&rig, note = failing.device.onCall](const auto& call) {
           rig.files.files[rig.paths.driverConfig] = {{"TouchMode", 1}};
           if (call.name == "close") rig.files.files.clear();
           note(call);
         };
       },
       upTo(10, {"vendor", "product",
                 "print driver configuration file: no value to store under \"EnableTouch\", the touchscreen "
                 "is not listed",
                 "close"}),
       {Why::SettingLacking, kSuccess, "\"EnableTouch\" (/x/com.VARNEXO.Driver.Config.plist)"}},
  };
  for (const auto& failing : cases) {
    SCOPED_TRACE(failing.name);
    DiscoveryRig rig;
    auto& first = rig.attached(0x10, kPlain);
    rig.attached(0x20, kPlain);
    failing.fail(rig, first);
    rig.start();
    EXPECT_TRUE(rig.begins(failing.journal));
    EXPECT_EQ(rig.listedLocations(), Locations{0x20}) << "the next device is not affected";
    EXPECT_FALSE(rig.application.isEnding());
    EXPECT_THAT(rig.owner.refusals, ElementsAre(failing.refusal));
  }
}

TEST_F(DeviceArrival, IsGivenUpAtOnceWhenItIsGone) {
  int attempts = 0;
  attached(0x10, kPlain).device.onOpen = [&] { return ++attempts < 3 ? kErrorNotPermitted : kErrorNoDevice; };
  start();
  EXPECT_EQ(attempts, 3);
  EXPECT_THAT(journal, Contains("alert Error: Unable to open device: e0000002. [OK]"));
  EXPECT_THAT(alerts.advices, ElementsAre("It was unplugged. Plug it in again."));
  EXPECT_THAT(owner.refusals, ElementsAre(NotListed{NotListed::Why::CannotBeOpened, kErrorNoDevice}));
}

TEST_F(DeviceArrival, NotesWhatCouldNotBeReadAndWhereTheDefaultsStandIn) {
  attached(0x10, kProductInfrared0080).firmware.setFault({firmware::Fault::IgnoresCommand, CMD_GET_PROPS});
  files.readStatus = kErrorUnsupported;
  start();
  const ContentSet unread{Content::ScreenProps, Content::DeviceConfig};
  EXPECT_THAT(owner.unread, ElementsAre(unread));
  EXPECT_EQ(owner.list.front()->integer(entry_key::kUnreadBlocks), static_cast<std::int32_t>(unread.bits()));
  EXPECT_EQ(owner.unreadableSettings, 1);
}

TEST_F(DeviceArrival, TriesFiftyTimesToOpenADevice) {
  for (const int successfulAttempt : {1, 2, 50, 51}) {
    SCOPED_TRACE(successfulAttempt);
    DiscoveryRig rig;
    int attempts = 0;
    rig.attached(0x10, kPlain).device.onOpen = [&] {
      return ++attempts < successfulAttempt ? kErrorExclusiveAccess : kSuccess;
    };
    rig.start();
    const bool opened = successfulAttempt <= 50;
    EXPECT_EQ(attempts, std::min(successfulAttempt, 50));
    EXPECT_THAT(rig.clock.sleeps, Each(500ms));
    EXPECT_EQ(rig.clock.sleeps.size(), opened ? static_cast<std::size_t>(successfulAttempt) : 49U)
        << "one of them for the driver instance";
    EXPECT_EQ(rig.owner.list.size(), opened ? 1U : 0U);
    if (opened) continue;
    EXPECT_EQ(Journal(rig.journal.end() - 3, rig.journal.end()),
              (Journal{"print unable to open device: e0000004", "release",
                       "alert Error: Unable to open device: e0000004. [OK]"}));
    EXPECT_EQ(rig.process.devIntf, nullptr) << "the interface was given up";
    EXPECT_THAT(rig.journal, Not(Contains("close")));
  }
}

TEST_F(DeviceArrival, ShowsWhatIsWaitedForAndPrintsEachReasonOnce) {
  constexpr std::string_view kAgain =
      "The touchscreen cannot be opened yet: %2. Trying again (attempt %n of 50)...";
  int attempts = 0;
  attached(0x10, kProductInfrared0080).device.onOpen = [&] {
    return ++attempts < 3 ? kErrorExclusiveAccess : kSuccess;
  };
  start();
  EXPECT_EQ(waitNotice.messages, (std::vector<WaitMessage>{{"Opening a touchscreen..."},
                                                           {kAgain, 2, "another program is using it"},
                                                           {kAgain, 3, "another program is using it"},
                                                           {"Waiting for the touchscreen's driver..."},
                                                           {"Reading the touchscreen's parameters..."}}));
  EXPECT_FALSE(waitNotice.isShown);
  // Sleeps without a notice, and alerts under one, would say so in the journal.
  EXPECT_THAT(journal, Contains("sleep 500").Times(3));
  EXPECT_THAT(
      journal,
      Contains("print a touchscreen cannot be opened yet: another program is using it (e0000004)").Times(1));
}

TEST_F(DeviceArrival, PairsWithADriverInstanceThatIsPublishedDuringTheWait) {
  registry.addDriver(0x99);
  auto& late = make(0x10, kPlain);
  usb.plugIn(late.device);
  clock.onSleep = [&](auto) {
    if (late.driver == 0) late.driver = registry.addDriver(0x10);
  };
  start();
  EXPECT_EQ(listedLocations(), Locations{0x10});
}

TEST_F(DeviceArrival, NeverListsALocationTwice) {
  attached(0x10, kPlain);
  start();
  auto& same = make(0x10, kProductOptical);
  usb.plugIn(same.device);
  runLoop.performSources();
  EXPECT_EQ(journal.back(), "close");
  EXPECT_EQ(listedLocations(), Locations{0x10});
  EXPECT_THAT(same.device.packets(), IsEmpty()) << "it is not even read";
}

TEST_F(DeviceArrival, ReadsWhatIsAttachedProductByProductWithTheExchangeOfItsKind) {
  const Locations products{0x0001, 0x0C20, 0x0080, 0x0085, 0x0086, 0x0087};
  for (auto product = products.rbegin(); product != products.rend(); ++product)
    attached(*product, static_cast<std::uint16_t>(*product));
  EXPECT_TRUE(start());
  ASSERT_EQ(listedLocations(), products);
  auto entry = owner.list.rbegin();
  for (const auto& [firmware, device, driver] : touchscreens) {
    const bool isRead = device.productId != kPlain;
    EXPECT_EQ(device.packets().empty(), !isRead);
    const auto held = isRead ? firmware.stored().screenProps : _ScrProps{};
    EXPECT_EQ(imageOf(contextOf(**entry++).ScreenProps), imageOf(held));
  }
  EXPECT_THAT(alerts.panels, IsEmpty());
}

TEST_F(DeviceArrival, SurvivesADeviceThatDiesAfterAnyPacket) {
  for (const auto product : {kProductInfrared0080, kProductOptical}) {
    std::uint32_t life = 0;
    for (bool listed = false; !listed; ++life) {
      ASSERT_LT(life, 100U) << "never listed";
      DiscoveryRig rig;
      auto& touchscreen = rig.attached(0x10, product);
      touchscreen.firmware.setFault({firmware::Fault::DiesAfterPackets, life});
      rig.start();
      EXPECT_FALSE(touchscreen.device.isOpen);
      EXPECT_FALSE(rig.application.isEnding());
      listed = !rig.owner.list.empty();
      EXPECT_THAT(rig.journal, Contains(kReadFailed).Times(listed ? 0 : 1)) << life;
    }
    EXPECT_GE(life, 9U) << "an entry was made of a device that had not answered every step";
  }
}

TEST_F(DeviceArrival, SharesOneContextAmongTheDevicesOfOneCall) {
  for (const bool sameCall : {true, false}) {
    DiscoveryRig rig;
    rig.attached(0x10, kProductInfrared0080);
    auto& second = rig.make(0x20, kProductInfrared0080);
    second.firmware.setFault({firmware::Fault::IgnoresCommand, CMD_IR_GET_BARCODE});
    if (sameCall) rig.plugIn(second);
    rig.start();
    if (!sameCall) rig.plugIn(second);
    rig.runLoop.performSources();
    ASSERT_EQ(rig.owner.list.size(), 2U);
    EXPECT_EQ(rig.owner.list[1]->text("SN"),
              sameCall ? rig.owner.list[0]->text("SN") : "Infrared Touchscreen");
  }
}

TEST_F(UnconfiguredDevice, IsFoundByAFreshRegistration) {
  auto& device = attached(0x10, kPlain).device;
  attached(0x20, kPlain);
  device.configuration = 0;
  clock.onSleep = [&, record = clock.onSleep](std::chrono::milliseconds duration) {
    record(duration);
    if (duration == 100ms) device.configuration = 1;
  };
  start();
  EXPECT_TRUE(begins({"create plug-in", "release service", "query", "destroy plug-in", "open",
                      "configuration", "close", "release", "sleep 100", "create plug-in"}));
  EXPECT_EQ(listedLocations(), (Locations{0x10, 0x20})) << "the rest of the old iterator is found anew";
  EXPECT_THAT(alerts.panels, IsEmpty());
  EXPECT_THAT(runLoop.sources, ElementsAre(process.runLoopSource));
  ASSERT_EQ(usb.ports.size(), 2U);
  EXPECT_EQ(process.runLoopSource, &usb.ports.back()->runLoopSource()) << "the new port is served";
}

TEST_F(UnconfiguredDevice, IsTakenAsConfiguredWhenTheConfigurationCannotBeRead) {
  auto& device = attached(0x10, kPlain).device;
  device.configuration = 0;
  device.getConfigurationStatus = kErrorStalled;
  start();
  EXPECT_EQ(listedLocations(), Locations{0x10});
}

TEST_F(UnconfiguredDevice, IsGivenUpInTheEndWhenItStaysSo) {
  attached(0x10, kPlain).device.configuration = 0;
  attached(0x20, kProductInfrared0080).device.configuration = 0;
  attached(0x30, kPlain);
  start();
  EXPECT_EQ(listedLocations(), Locations{0x30});
  EXPECT_EQ(process.devIntf, nullptr) << "the last one's interface was given up";
  EXPECT_THAT(journal, Contains("sleep 100").Times(5)) << "for both devices together";
  EXPECT_THAT(journal, Contains("print a device stays without a configuration and is not listed"));

  auto& later = attached(0x40, kPlain).device;
  later.configuration = 0;
  clock.onSleep = [&](auto) { later.configuration = 1; };
  runLoop.performSources();
  EXPECT_THAT(listedLocations(), Contains(0x40U)) << "a later arrival has its own attempts";
}

TEST_F(ApplicationEnding, StopsEverythingFromWhicheverAlertItComes) {
  const std::function<void(FakeUsbDevice&)> faults[] = {
      [](FakeUsbDevice& failing) { failing.onOpen = [] { return kErrorNotPermitted; }; },
      [](FakeUsbDevice& failing) { failing.productId = 0x0099; }};
  for (const auto& fail : faults) {
    DiscoveryRig rig;
    auto& failing = rig.attached(0x10, kPlain).device;
    fail(failing);
    rig.attached(0x20, kPlain);
    rig.onAlert = [&] { rig.application.exit(0); };
    EXPECT_FALSE(rig.start());
    EXPECT_EQ(rig.alerts.panels.size(), 1U);
    EXPECT_THAT(rig.owner.list, IsEmpty());
    EXPECT_THAT(rig.journal, Contains("create plug-in").Times(1));
    EXPECT_EQ(rig.usb.requests.size(), 2U);
    EXPECT_FALSE(failing.isOpen);
  }
}

TEST_F(ApplicationEnding, EndsARepeatedRegistrationWithoutASecondAlert) {
  auto& touchscreen = attached(0x10, kPlain);
  touchscreen.device.configuration = 0;
  clock.onSleep = [&](auto) { registry.remove(touchscreen.driver); };
  EXPECT_FALSE(start());
  EXPECT_EQ(alerts.panels.size(), 1U);
  EXPECT_TRUE(application.isTerminated);
}

TEST_F(DeviceRemoval, ProbesAfterAWaitAndSelectsTheFirstRow) {
  auto& first = attached(0x10, kPlain);
  attached(0x20, kPlain);
  start();
  journal.clear();
  registry.writes.clear();
  clock.onSleep = [&, record = clock.onSleep](std::chrono::milliseconds duration) {
    record(duration);
    registry.remove(first.driver);  // the instance goes while we wait
  };
  usb.plugOut(first.device);
  runLoop.performSources();
  EXPECT_EQ(journal, (Journal{"sleep 200", "reload", "select 0", "release service"}));
  EXPECT_EQ(listedLocations(), Locations{0x20});
  EXPECT_THAT(registry.writes, IsEmpty()) << "the entry in the free place is not tested in this pass";
  EXPECT_FALSE(application.isEnding());
}

TEST_F(DeviceRemoval, LeavesTheEntryBehindADroppedOneToTheNextPass) {
  auto& a = attached(0xA0, kPlain);
  auto& b = attached(0xB0, kPlain);
  attached(0xC0, kPlain);
  start();
  registry.remove(a.driver);
  registry.remove(b.driver);
  registry.writes.clear();

  RemoveDeviceFromArray(owner, registry, application);
  EXPECT_EQ(listedLocations(), (Locations{0xB0, 0xC0}));
  ASSERT_EQ(registry.writes.size(), 1U) << "the third was tested and lives";
  EXPECT_EQ(registry.writes.front().name, "calibration");
  RemoveDeviceFromArray(owner, registry, application);
  EXPECT_EQ(listedLocations(), Locations{0xC0});
  EXPECT_FALSE(application.isEnding());
}

TEST_F(DeviceRemoval, EndsTheApplicationWithStatusZeroWhenNothingIsLeft) {
  auto& only = attached(0x10, kPlain);
  auto& other = make(0x20, kPlain);
  usb.plugIn(other.device);  // never listed
  start();
  journal.clear();
  plugOut(only);
  usb.plugOut(other.device);
  runLoop.performSources();
  EXPECT_EQ(application.exitStatus, 0);
  EXPECT_EQ(journal, (Journal{"sleep 200", "reload", "release service"})) << "and nothing after it";
}

TEST(DeviceList, FollowsEveryOrderOfArrivalsAndRemovals) {
  std::mt19937 random(11);
  for (int round = 0; round < 200; ++round) {
    DiscoveryRig rig;
    for (std::uint32_t i = 0; i < kProductIds.size(); ++i) rig.make(0x10 + i, kProductIds[i]);
    rig.registry.addDriver(0x99);  // so that the driver is never quite gone
    rig.start();
    Locations expected;
    for (int step = 0; step < 20 && !rig.application.isEnding(); ++step) {
      const auto index = static_cast<std::ptrdiff_t>(random() % kProductIds.size());
      auto& touchscreen = *std::next(rig.touchscreens.begin(), index);
      if (std::erase(expected, touchscreen.device.locationId) > 0) {
        rig.plugOut(touchscreen);
      } else {
        rig.plugIn(touchscreen);
        expected.push_back(touchscreen.device.locationId);
      }
      rig.runLoop.performSources();
      EXPECT_EQ(rig.listedLocations(), expected) << "round " << round;
      EXPECT_EQ(rig.application.isEnding(), expected.empty());
    }
  }
}

}  // namespace
}  // namespace touchpanel::testing

#include <algorithm>
#include <random>

#include <gmock/gmock.h>

#include "DiscoveryRig.h"
#include "discovery/DeviceList.h"
#include "discovery/UsbDiscovery.h"
#include "platform_build/BuildConstants.h"
#include "protocol/Packet.h"

namespace touchpanel {
namespace {

using namespace std::chrono_literals;
using ::testing::Contains;
using testing::DiscoveryRig;
using ::testing::Each;
using ::testing::ElementsAre;
using testing::FakeAlerts;
using testing::FakeUsbNotifications;
using ::testing::IsEmpty;
using ::testing::Not;
using Journal = std::vector<std::string>;
using Locations = std::vector<std::uint32_t>;

constexpr std::uint16_t kPlain = kProductConfigurationOnly;  // needs no exchange, so its journal is short
const FakeAlerts::Panel kReadFailed{"Error", "To get the device parameters failed, please try again.", "OK"};

long countOf(const Journal& journal, const std::string& event) {
  return std::count(journal.begin(), journal.end(), event);
}

TEST(UsbRegistration, AsksForEveryProductInOrderAndServesThePort) {
  DiscoveryRig rig;
  rig.registry.addDriver(1);
  EXPECT_TRUE(rig.discovery.registerForUSBNotifications());
  std::vector<FakeUsbNotifications::Registration> expected;
  for (const int product : {0x0001, 0x0C20, 0x0080, 0x0085, 0x0086, 0x0087})
    for (const auto event : {UsbEvent::FirstMatch, UsbEvent::Terminate})
      expected.push_back(
          {event,
           {{"class", "IOUSBDevice"}, {"idVendor", std::int32_t{TOUCH_VENDOR_ID}}, {"idProduct", product}}});
  EXPECT_EQ(rig.notifications.registrations, expected);
  EXPECT_THAT(rig.runLoop.sources, ElementsAre(rig.process.runLoopSource));
  EXPECT_EQ(rig.notifications.releasedMasterPorts, 1);
  EXPECT_THAT(rig.journal, IsEmpty());
}

TEST(UsbRegistration, ReportsAMissingMasterPortOrDictionaryAndDoesNoMore) {
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
    DiscoveryRig rig;
    rig.notifications.masterPortStatus = failing.masterPortStatus;
    rig.notifications.masterPortValue = failing.masterPort;
    rig.notifications.canMatch = false;
    EXPECT_FALSE(rig.discovery.registerForUSBNotifications());
    EXPECT_EQ(rig.journal, Journal{failing.report});
    EXPECT_EQ(rig.notifications.releasedMasterPorts, failing.releases);
    EXPECT_THAT(rig.notifications.registrations, IsEmpty());
  }
}

TEST(UsbRegistration, StopsSilentlyAtTheFirstNotificationThatIsRefused) {
  for (std::size_t refused = 0; refused < 12; ++refused) {
    DiscoveryRig rig;
    rig.attached(0x10, kPlain);
    rig.attached(0x20, kProductOptical);
    rig.notifications.registrationsUntilFailure = refused;
    EXPECT_FALSE(rig.discovery.registerForUSBNotifications());
    EXPECT_EQ(rig.notifications.registrations.size(), refused);
    EXPECT_THAT(rig.alerts.panels, IsEmpty());
    const auto pairs = refused / 2;
    EXPECT_EQ(rig.owner.list.size(), std::min<std::size_t>(pairs, 2)) << "complete pairs have been served";
  }
}

TEST(UsbRegistration, ListsWhatIsAttachedProductByProduct) {
  DiscoveryRig rig;
  Locations expected;
  std::uint32_t location = 0x70;
  for (const auto product : {0x0087, 0x0086, 0x0085, 0x0080, 0x0C20, 0x0001}) {
    rig.attached(location, static_cast<std::uint16_t>(product));
    expected.insert(expected.begin(), location);
    location -= 0x10;
  }
  EXPECT_TRUE(rig.discovery.registerForUSBNotifications());
  EXPECT_EQ(rig.listedLocations(), expected);
  EXPECT_THAT(rig.alerts.panels, IsEmpty());
}

TEST(UsbRegistration, EndsTheApplicationOnceWhenThereIsNoDriver) {
  DiscoveryRig rig;
  auto& touchscreen = rig.make(0x10, kPlain);
  rig.notifications.plugIn(touchscreen.service, kPlain);
  EXPECT_FALSE(rig.discovery.registerForUSBNotifications());
  EXPECT_EQ(rig.journal, Journal{"alert Warning: Not found touch device. [OK]"});
  EXPECT_TRUE(rig.application.isTerminated);
  EXPECT_EQ(rig.notifications.registrations.size(), 2U) << "nothing more was registered";
}

TEST(DeviceArrival, GoesThroughEveryStepInOrder) {
  DiscoveryRig rig;
  rig.attached(0x10, kPlain);
  rig.discovery.registerForUSBNotifications();
  EXPECT_EQ(rig.journal, (Journal{"create plug-in 1", "release service 1", "query 1", "destroy plug-in 1",
                                  "open", "configuration", "location", "vendor", "product", "sleep 500",
                                  "vendor", "product", "reload", "close"}));
  EXPECT_EQ(rig.listedLocations(), Locations{0x10});
  const auto& device = rig.touchscreens.front().device;
  EXPECT_EQ(rig.process.devIntf, &device);
  EXPECT_FALSE(device.isReleased) << "the entry refers to it";
  EXPECT_EQ(rig.owner.list.front()->integer("DeviceInterface"), device.ownReference);
  EXPECT_EQ(registryObjectOf(*rig.owner.list.front(), "Handle"), rig.touchscreens.front().driver);
  EXPECT_FALSE(rig.waitNotice.isShown);
}

TEST(DeviceArrival, ReportsEachFailingStepAndGoesOnWithTheNextDevice) {
  using Touchscreen = DiscoveryRig::Touchscreen;
  struct Case {
    const char* name;
    std::function<void(DiscoveryRig&, Touchscreen&)> fail;
    Journal journal;
  };
  const Journal wayToOpen = {
      "create plug-in 1", "release service 1", "query 1", "destroy plug-in 1", "open",
      "configuration",    "location",          "vendor",  "product",           "sleep 500"};
  auto upTo = [&](std::size_t steps, Journal rest) {
    Journal journal(wayToOpen.begin(), wayToOpen.begin() + static_cast<std::ptrdiff_t>(steps));
    journal.insert(journal.end(), rest.begin(), rest.end());
    return journal;
  };
  const std::string readAlert = "alert Error: To get the device parameters failed, please try again. [OK]";
  const Case cases[] = {
      {"no plug-in",
       [](auto& rig, auto& failing) { rig.services.services[failing.service].hasPlugIn = false; },
       upTo(2, {"print Unable to create a plug-in (00000000)"})},
      {"service gone when released",
       [](auto& rig, auto& failing) {
         rig.services.services[failing.service].releaseStatus = kErrorNoDevice;
       },
       upTo(2, {"print Unable to create a plug-in (e0000002)"})},
      {"interface query fails",
       [](auto& rig, auto& failing) { rig.services.services[failing.service].queryStatus = kErrorNoMemory; },
       upTo(4, {"print couldn't create a device interface (e0000009)"})},
      {"no interface",
       [](auto& rig, auto& failing) { rig.services.services[failing.service].device = nullptr; },
       upTo(4, {"print couldn't create a device interface (00000000)"})},
      {"no driver instance at its location",
       [](auto& rig, auto& failing) { rig.registry.remove(failing.driver); }, upTo(10, {"close"})},
      {"unknown product", [](auto&, auto& failing) { failing.device.productId = 0x0099; },
       upTo(10, {readAlert, "close"})},
      {"parameters cannot be read",
       [](auto&, auto& failing) {
         failing.device.productId = kProductInfrared0080;
         failing.device.outStatus = kErrorStalled;
       },
       upTo(10, {"print To set the touchscreen to the diagnosis mode failed.", readAlert, "close"})},
      {"driver settings file lacks a key",
       [](auto& rig, auto& failing) {
         failing.device.onCall = [&rig, note = failing.device.onCall](const auto& call) {
           rig.files.files[rig.paths.driverConfig] = {{"TouchMode", 1}};
           if (call.operation == testing::FakeUsbDevice::Operation::Close) rig.files.files.clear();
           note(call);
         };
       },
       upTo(10,
            {"vendor", "product",
             "print driver configuration file: no value to store under \"EnableTouch\", the touchscreen is "
             "not listed",
             "close"})},
  };
  for (const auto& failing : cases) {
    SCOPED_TRACE(failing.name);
    DiscoveryRig rig;
    auto& first = rig.attached(0x10, kPlain);
    rig.attached(0x20, kPlain);
    failing.fail(rig, first);
    rig.discovery.registerForUSBNotifications();
    ASSERT_GE(rig.journal.size(), failing.journal.size());
    EXPECT_EQ(Journal(rig.journal.begin(),
                      rig.journal.begin() + static_cast<std::ptrdiff_t>(failing.journal.size())),
              failing.journal);
    EXPECT_EQ(rig.listedLocations(), Locations{0x20}) << "the next device is not affected";
    EXPECT_FALSE(rig.application.isEnding());
  }
}

TEST(DeviceArrival, TriesFiftyTimesToOpenADevice) {
  for (const int successfulAttempt : {1, 2, 50, 51}) {
    SCOPED_TRACE(successfulAttempt);
    DiscoveryRig rig;
    auto& touchscreen = rig.attached(0x10, kPlain);
    int attempts = 0;
    touchscreen.device.onOpen = [&] {
      return ++attempts < successfulAttempt ? kErrorExclusiveAccess : kSuccess;
    };
    rig.discovery.registerForUSBNotifications();
    const bool opened = successfulAttempt <= 50;
    EXPECT_EQ(attempts, std::min(successfulAttempt, 50));
    const auto sleeps = rig.clock.sleeps;
    EXPECT_THAT(sleeps, Each(500ms));
    EXPECT_EQ(sleeps.size(), static_cast<std::size_t>(opened ? successfulAttempt - 1 + 1 : 49));
    EXPECT_EQ(rig.owner.list.size(), opened ? 1U : 0U);
    if (opened) continue;
    EXPECT_EQ(Journal(rig.journal.end() - 3, rig.journal.end()),
              (Journal{"print unable to open device: e0000004", "release",
                       "alert Error: Unable to open device: e0000004. [OK]"}));
    EXPECT_EQ(rig.process.devIntf, nullptr) << "the interface was given up";
    EXPECT_THAT(rig.journal, Not(Contains("close")));
  }
}

TEST(DeviceArrival, TellsWhatIsWaitedFor) {
  DiscoveryRig rig;
  auto& touchscreen = rig.attached(0x10, kProductInfrared0080);
  int attempts = 0;
  touchscreen.device.onOpen = [&] { return ++attempts < 3 ? kErrorExclusiveAccess : kSuccess; };
  rig.discovery.registerForUSBNotifications();
  EXPECT_EQ(rig.waitNotice.messages, (std::vector<WaitMessage>{{WaitText::OpeningTouchscreen},
                                                               {WaitText::TouchscreenInUse, 2},
                                                               {WaitText::TouchscreenInUse, 3},
                                                               {WaitText::WaitingForDriver},
                                                               {WaitText::ReadingTouchscreen}}));
  EXPECT_FALSE(rig.waitNotice.isShown);
  // Sleeps without a notice, and alerts under one, would say so in the journal.
  EXPECT_EQ(countOf(rig.journal, "sleep 500"), 3);
}

TEST(DeviceArrival, PairsWithADriverInstanceThatIsPublishedDuringTheWait) {
  DiscoveryRig rig;
  rig.registry.addDriver(0x99);
  auto& late = rig.make(0x10, kPlain);
  rig.notifications.plugIn(late.service, kPlain);
  rig.clock.onSleep = [&](std::chrono::milliseconds) {
    if (late.driver == 0) late.driver = rig.registry.addDriver(0x10);
  };
  rig.discovery.registerForUSBNotifications();
  EXPECT_EQ(rig.listedLocations(), Locations{0x10});
}

TEST(DeviceArrival, NeverListsALocationTwice) {
  DiscoveryRig rig;
  rig.attached(0x10, kPlain);
  rig.discovery.registerForUSBNotifications();
  auto& same = rig.make(0x10, kProductOptical);
  rig.takeJournal();
  rig.notifications.plugIn(same.service, kProductOptical);
  rig.runLoop.performSources();
  EXPECT_EQ(rig.journal.back(), "close");
  EXPECT_EQ(rig.listedLocations(), Locations{0x10});
  EXPECT_THAT(same.device.packets(), IsEmpty()) << "it is not even read";
}

TEST(DeviceArrival, ReadsEachProductWithTheExchangeOfItsKind) {
  DiscoveryRig rig;
  rig.attached(0x10, kPlain);
  for (const auto product : {kProductOptical, kProductInfrared0080, kProductInfrared0085,
                             kProductInfrared0086, kProductInfrared0087})
    rig.attached(0x100U + product, product);
  rig.discovery.registerForUSBNotifications();
  ASSERT_EQ(rig.owner.list.size(), 6U);
  for (const auto& touchscreen : rig.touchscreens) {
    const auto entry = std::find_if(rig.owner.list.begin(), rig.owner.list.end(), [&](const auto& listed) {
      return listed->integer("DeviceInterface") == touchscreen.device.ownReference;
    });
    ASSERT_NE(entry, rig.owner.list.end());
    const bool isRead = touchscreen.device.productId != kPlain;
    EXPECT_EQ(touchscreen.device.packets().empty(), !isRead);
    const auto held = isRead ? touchscreen.firmware.stored().screenProps : _ScrProps{};
    EXPECT_EQ(imageOf(contextOf(**entry).ScreenProps), imageOf(held));
  }
}

TEST(DeviceArrival, SurvivesADeviceThatDiesAfterAnyPacket) {
  for (const auto product : {kProductInfrared0080, kProductOptical}) {
    std::uint32_t packets = 0;
    for (std::uint32_t life = 0;; ++life) {
      DiscoveryRig rig;
      auto& touchscreen = rig.attached(0x10, product);
      touchscreen.firmware.setFault({firmware::Fault::DiesAfterPackets, life});
      rig.discovery.registerForUSBNotifications();
      EXPECT_FALSE(touchscreen.device.isOpen);
      EXPECT_FALSE(rig.application.isEnding());
      if (!rig.owner.list.empty()) {
        packets = life;
        break;
      }
      EXPECT_EQ(rig.alerts.panels, std::vector{kReadFailed}) << life;
      ASSERT_LT(life, 100U) << "never listed";
    }
    EXPECT_GE(packets, 8U) << "an entry was made of a device that had not answered every step";
  }
}

TEST(DeviceArrival, SharesOneContextAmongTheDevicesOfOneCall) {
  const firmware::FaultSetting mute{firmware::Fault::IgnoresCommand, CMD_IR_GET_BARCODE};
  for (const bool sameCall : {true, false}) {
    DiscoveryRig rig;
    rig.attached(0x10, kProductInfrared0080);
    auto& second = rig.make(0x20, kProductInfrared0080);
    second.firmware.setFault(mute);
    if (sameCall) rig.plugIn(second);
    rig.discovery.registerForUSBNotifications();
    if (!sameCall) rig.plugIn(second);
    rig.runLoop.performSources();
    ASSERT_EQ(rig.owner.list.size(), 2U);
    const auto& list = rig.owner.list;
    if (sameCall)
      EXPECT_EQ(list[1]->text("SN"), list[0]->text("SN"));
    else
      EXPECT_EQ(list[1]->text("SN"), "Infrared Touchscreen");
  }
}

TEST(UnconfiguredDevice, IsFoundByAFreshRegistration) {
  DiscoveryRig rig;
  auto& touchscreen = rig.attached(0x10, kPlain);
  rig.attached(0x20, kPlain);
  touchscreen.device.configuration = 0;
  rig.clock.onSleep = [&, note = rig.clock.onSleep](std::chrono::milliseconds duration) {
    note(duration);
    if (duration == 100ms) touchscreen.device.configuration = 1;
  };
  rig.discovery.registerForUSBNotifications();
  const Journal expected{"create plug-in 1",
                         "release service 1",
                         "query 1",
                         "destroy plug-in 1",
                         "open",
                         "configuration",
                         "close",
                         "release",
                         "sleep 100",
                         "create plug-in 1"};
  EXPECT_EQ(Journal(rig.journal.begin(), rig.journal.begin() + 10), expected);
  EXPECT_EQ(rig.listedLocations(), (Locations{0x10, 0x20})) << "the rest of the old iterator is found anew";
  EXPECT_THAT(rig.alerts.panels, IsEmpty());
  EXPECT_THAT(rig.runLoop.sources, ElementsAre(rig.process.runLoopSource));
  EXPECT_EQ(rig.process.runLoopSource, rig.notifications.ports.back().get()) << "the new port is served";
  EXPECT_EQ(rig.notifications.ports.size(), 2U);
}

TEST(UnconfiguredDevice, IsTakenAsConfiguredWhenTheConfigurationCannotBeRead) {
  DiscoveryRig rig;
  auto& touchscreen = rig.attached(0x10, kPlain);
  touchscreen.device.configuration = 0;
  touchscreen.device.getConfigurationStatus = kErrorStalled;
  rig.discovery.registerForUSBNotifications();
  EXPECT_EQ(rig.listedLocations(), Locations{0x10});
}

TEST(UnconfiguredDevice, IsGivenUpInTheEndWhenItStaysSo) {
  DiscoveryRig rig;
  rig.attached(0x10, kPlain).device.configuration = 0;
  rig.attached(0x20, kProductInfrared0080).device.configuration = 0;
  rig.attached(0x30, kPlain);
  rig.discovery.registerForUSBNotifications();
  EXPECT_EQ(rig.listedLocations(), Locations{0x30});
  EXPECT_EQ(countOf(rig.journal, "sleep 100"), 50) << "for both devices together";
  EXPECT_THAT(rig.journal, Contains("print a device stays without a configuration and is not listed"));

  rig.takeJournal();
  auto& later = rig.attached(0x40, kPlain);
  later.device.configuration = 0;
  rig.clock.onSleep = [&](std::chrono::milliseconds) { later.device.configuration = 1; };
  rig.runLoop.performSources();
  EXPECT_THAT(rig.listedLocations(), Contains(0x40U)) << "a later arrival has its own attempts";
}

TEST(ApplicationEnding, StopsEverythingFromWhicheverAlertItComes) {
  using Touchscreen = DiscoveryRig::Touchscreen;
  const std::function<void(Touchscreen&)> faults[] = {
      [](Touchscreen& failing) { failing.device.onOpen = [] { return kErrorNotPermitted; }; },
      [](Touchscreen& failing) { failing.device.productId = 0x0099; }};
  for (const auto& fail : faults) {
    DiscoveryRig rig;
    fail(rig.attached(0x10, kPlain));
    rig.attached(0x20, kPlain);
    rig.onAlert = [&] { rig.application.exit(0); };
    EXPECT_FALSE(rig.discovery.registerForUSBNotifications());
    EXPECT_EQ(rig.alerts.panels.size(), 1U);
    EXPECT_THAT(rig.owner.list, IsEmpty());
    EXPECT_THAT(rig.journal, Not(Contains("create plug-in 2")));
    EXPECT_EQ(rig.notifications.registrations.size(), 2U);
    EXPECT_THAT(rig.touchscreens.front().device.isOpen, false);
  }
}

TEST(ApplicationEnding, EndsARepeatedRegistrationWithoutASecondAlert) {
  DiscoveryRig rig;
  rig.attached(0x10, kPlain).device.configuration = 0;
  rig.clock.onSleep = [&](std::chrono::milliseconds) {
    rig.registry.remove(rig.touchscreens.front().driver);
  };
  EXPECT_FALSE(rig.discovery.registerForUSBNotifications());
  EXPECT_EQ(rig.alerts.panels.size(), 1U);
  EXPECT_TRUE(rig.application.isTerminated);
}

TEST(DeviceRemoval, ProbesAfterAWaitAndSelectsTheFirstRow) {
  DiscoveryRig rig;
  auto& first = rig.attached(0x10, kPlain);
  rig.attached(0x20, kPlain);
  rig.discovery.registerForUSBNotifications();
  rig.takeJournal();
  rig.registry.writes.clear();
  rig.clock.onSleep = [&, note = rig.clock.onSleep](std::chrono::milliseconds duration) {
    note(duration);
    rig.registry.remove(first.driver);  // the instance goes while we wait
  };
  rig.notifications.plugOut(first.service, kPlain);
  rig.runLoop.performSources();
  EXPECT_EQ(rig.journal, (Journal{"sleep 200", "reload", "select 0", "release service 1"}));
  EXPECT_EQ(rig.listedLocations(), Locations{0x20});
  EXPECT_THAT(rig.registry.writes, IsEmpty()) << "the entry in the free place is not tested in this pass";
  EXPECT_FALSE(rig.application.isEnding());
}

TEST(DeviceRemoval, LeavesTheEntryBehindADroppedOneToTheNextPass) {
  DiscoveryRig rig;
  for (const std::uint32_t location : {0xA0, 0xB0, 0xC0}) rig.attached(location, kPlain);
  rig.discovery.registerForUSBNotifications();
  auto& a = *rig.touchscreens.begin();
  auto& b = *std::next(rig.touchscreens.begin());
  rig.registry.remove(a.driver);
  rig.registry.remove(b.driver);
  rig.registry.writes.clear();

  RemoveDeviceFromArray(rig.owner, rig.registry, rig.application);
  EXPECT_EQ(rig.listedLocations(), (Locations{0xB0, 0xC0}));
  EXPECT_EQ(rig.registry.writes.size(), 1U) << "the third was tested and lives";
  RemoveDeviceFromArray(rig.owner, rig.registry, rig.application);
  EXPECT_EQ(rig.listedLocations(), Locations{0xC0});
  EXPECT_FALSE(rig.application.isEnding());
}

TEST(DeviceRemoval, EndsTheApplicationWithStatusZeroWhenNothingIsLeft) {
  DiscoveryRig rig;
  auto& only = rig.attached(0x10, kPlain);
  auto& other = rig.make(0x20, kPlain);
  rig.discovery.registerForUSBNotifications();
  rig.takeJournal();
  rig.registry.remove(only.driver);
  rig.notifications.plugOut(only.service, kPlain);
  rig.notifications.plugOut(other.service, kPlain);
  rig.runLoop.performSources();
  EXPECT_EQ(rig.application.exitStatus, 0);
  EXPECT_EQ(rig.journal, (Journal{"sleep 200", "reload", "release service 1"})) << "and nothing after it";
}

TEST(DeviceList, FollowsEveryOrderOfArrivalsAndRemovals) {
  std::mt19937 random(11);
  for (int round = 0; round < 200; ++round) {
    DiscoveryRig rig;
    for (std::uint32_t i = 0; i < kProductIds.size(); ++i) rig.make(0x10 + i, kProductIds[i]);
    rig.registry.addDriver(0x99);  // so that the driver is never quite gone
    rig.discovery.registerForUSBNotifications();
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
}  // namespace touchpanel

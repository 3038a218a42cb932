#pragma once

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "contract/ProductId.h"
#include "platform/Usb.h"
#include "platform_build/BuildConstants.h"

// What every provider of the USB ports must do, whatever bus stands behind it. A provider's test program
// includes this, describes its world and instantiates the suite:
//
//   INSTANTIATE_TEST_SUITE_P(Simulated, UsbContract, ::testing::Values(UsbProvider{makeWorld}));

namespace touchpanel::testing {

/// A provider together with three touchscreens, one of each kind, none of them plugged in at first.
class UsbWorld {
 public:
  virtual ~UsbWorld() = default;
  virtual UsbNotifications& notifications() = 0;
  virtual UsbServices& services() = 0;

  /// Plugs the touchscreen with that product id in: kProductConfigurationOnly, kProductOptical or
  /// kProductInfrared0080.
  virtual void plugIn(std::uint16_t productId) = 0;
  virtual void unplug(std::uint16_t productId) = 0;
  virtual std::uint32_t locationOf(std::uint16_t productId) = 0;
  /// Waits until everything done so far can be noticed through `source`, and lets it handle that.
  virtual void serve(RunLoopSource& source) = 0;
  /// Has `action` run before the next control transfer of that touchscreen reaches it.
  virtual void beforeNextTransfer(std::uint16_t productId, std::function<void()> action) = 0;
};

struct UsbProvider {
  std::function<std::unique_ptr<UsbWorld>()> make;
};

class UsbContract : public ::testing::TestWithParam<UsbProvider> {
 protected:
  static constexpr std::uint16_t kPlain = kProductConfigurationOnly;
  static constexpr std::uint16_t kOptical = kProductOptical;
  static constexpr std::uint16_t kInfrared = kProductInfrared0080;

  std::unique_ptr<UsbWorld> world = GetParam().make();
  UsbServices& services = world->services();
  UsbNotificationPort& port = makePort();
  /// Every callback: which event of which product, and the services that its iterator yielded.
  std::vector<std::string> events;
  std::vector<UsbService> lastServices;

  UsbNotificationPort& makePort() {
    MasterPort master = 0;
    EXPECT_EQ(world->notifications().masterPort(master), kSuccess);
    EXPECT_NE(master, 0U);
    return world->notifications().createNotificationPort(master);
  }
  UsbIterator& watch(UsbEvent event, std::uint16_t productId, int vendorId = TOUCH_VENDOR_ID) {
    const auto record = [=, this](UsbIterator& fired) {
      lastServices = drain(fired);
      events.push_back(std::string(event == UsbEvent::FirstMatch ? "in " : "out ") +
                       std::to_string(productId) + " x" + std::to_string(lastServices.size()));
    };
    return watchOn(port, productId, record, event, vendorId);
  }
  UsbIterator& watchOn(UsbNotificationPort& on, std::uint16_t productId, UsbCallback callback,
                       UsbEvent event = UsbEvent::FirstMatch, int vendorId = TOUCH_VENDOR_ID) {
    auto matching = world->notifications().matchingDictionary("IOUSBDevice");
    EXPECT_TRUE(matching.has_value());
    matching->set("idVendor", vendorId);
    matching->set("idProduct", int{productId});
    UsbIterator* iterator = nullptr;
    EXPECT_EQ(
        world->notifications().addMatchingNotification(on, event, *matching, std::move(callback), iterator),
        kSuccess);
    return *iterator;
  }
  static std::vector<UsbService> drain(UsbIterator& iterator) {
    std::vector<UsbService> yielded;
    while (const auto service = iterator.next()) yielded.push_back(service);
    return yielded;
  }
  void serve() { world->serve(port.runLoopSource()); }

  /// The interface of a touchscreen that is plugged in; null when a step towards it fails.
  UsbDeviceInterface* interfaceOf(UsbService service) {
    UsbPlugIn plugIn = 0;
    if (services.createPlugIn(service, plugIn) != kSuccess || plugIn == 0) return nullptr;
    services.releaseService(service);
    UsbDeviceInterface* device = nullptr;
    const auto status = services.queryDeviceInterface(plugIn, device);
    services.destroyPlugIn(plugIn);
    return status == kSuccess ? device : nullptr;
  }
  UsbDeviceInterface* pluggedIn(std::uint16_t productId) {
    drain(watch(UsbEvent::FirstMatch, productId));
    world->plugIn(productId);
    serve();
    events.clear();
    return lastServices.size() == 1 ? interfaceOf(lastServices.front()) : nullptr;
  }
  /// The command that puts an infrared device into command mode.
  static Status transferOut(UsbDeviceInterface& device, std::uint32_t* done = nullptr) {
    std::array<std::uint8_t, 7> packet = {0xAA, 0x01, 0x71, 0x02, 0x00, 0x01, 0x74};
    DeviceRequest request{.bmRequestType = 0x40, .wLength = packet.size(), .pData = packet.data()};
    const auto status = device.deviceRequest(request);
    if (done != nullptr) *done = request.wLenDone;
    return status;
  }
};

TEST_P(UsbContract, HandsOutTheDevicesThatAreAlreadyThereToTheirProductOnly) {
  world->plugIn(kPlain);
  world->plugIn(kInfrared);
  serve();
  EXPECT_EQ(drain(watch(UsbEvent::FirstMatch, kPlain)).size(), 1U);
  EXPECT_EQ(drain(watch(UsbEvent::FirstMatch, kInfrared)).size(), 1U);
  EXPECT_TRUE(drain(watch(UsbEvent::FirstMatch, kOptical)).empty());
  EXPECT_TRUE(drain(watch(UsbEvent::Terminate, kPlain)).empty());
  EXPECT_TRUE(drain(watch(UsbEvent::FirstMatch, kPlain, TOUCH_VENDOR_ID + 1)).empty());
  serve();
  EXPECT_THAT(events, ::testing::IsEmpty()) << "what the iterators told is not told again";
}

TEST_P(UsbContract, TellsArrivalsAndDeparturesFromTheRunLoopOnlyAndInTheirOrder) {
  for (const auto product : {kPlain, kInfrared})
    for (const auto event : {UsbEvent::FirstMatch, UsbEvent::Terminate}) drain(watch(event, product));
  world->plugIn(kInfrared);
  world->plugIn(kPlain);
  EXPECT_THAT(events, ::testing::IsEmpty());
  serve();
  EXPECT_EQ(events, (std::vector<std::string>{"in 128 x1", "in 1 x1"}));

  events.clear();
  world->unplug(kPlain);
  world->plugIn(kPlain);
  world->unplug(kInfrared);
  serve();
  EXPECT_EQ(events, (std::vector<std::string>{"out 1 x1", "in 1 x1", "out 128 x1"}))
      << "a device that is plugged in again must be dropped before it is found";
  serve();
  EXPECT_EQ(events.size(), 3U) << "each is told once";
}

TEST_P(UsbContract, TellsNothingBeforeTheIteratorWasRunOut) {
  auto& arrivals = watch(UsbEvent::FirstMatch, kPlain);
  world->plugIn(kPlain);
  serve();
  EXPECT_THAT(events, ::testing::IsEmpty());
  EXPECT_EQ(drain(arrivals).size(), 1U) << "but it is kept";
}

TEST_P(UsbContract, LeadsFromAServiceToAnInterfaceAndItsReference) {
  auto* device = pluggedIn(kOptical);
  ASSERT_NE(device, nullptr);
  EXPECT_NE(device->reference(), 0);
  EXPECT_EQ(services.deviceInterface(device->reference()), device);
  EXPECT_EQ(services.deviceInterface(device->reference() + 1000), nullptr);

  // As discovery does: opened first, then asked.
  ASSERT_EQ(device->open(), kSuccess);
  std::uint8_t configuration = 0;
  std::uint16_t vendorId = 0;
  std::uint16_t productId = 0;
  std::uint32_t locationId = 0;
  EXPECT_EQ(device->getConfiguration(configuration), kSuccess);
  EXPECT_EQ(device->getDeviceVendor(vendorId), kSuccess);
  EXPECT_EQ(device->getDeviceProduct(productId), kSuccess);
  EXPECT_EQ(device->getLocationID(locationId), kSuccess);
  EXPECT_EQ(configuration, 1);
  EXPECT_EQ(vendorId, TOUCH_VENDOR_ID);
  EXPECT_EQ(productId, kOptical);
  EXPECT_EQ(locationId, world->locationOf(kOptical));
  EXPECT_NE(locationId, 0U);
  EXPECT_EQ(device->close(), kSuccess);

  const auto reference = device->reference();
  device->release();
  EXPECT_EQ(services.deviceInterface(reference), nullptr);
}

TEST_P(UsbContract, IsOpenToOneInterfaceAtATime) {
  auto* first = pluggedIn(kInfrared);
  const auto again = drain(watch(UsbEvent::FirstMatch, kInfrared));
  ASSERT_EQ(again.size(), 1U);
  auto* second = interfaceOf(again.front());
  ASSERT_TRUE(first != nullptr && second != nullptr);
  EXPECT_NE(first->reference(), second->reference());
  ASSERT_EQ(first->open(), kSuccess);
  EXPECT_EQ(second->open(), kErrorExclusiveAccess);
  EXPECT_EQ(first->close(), kSuccess);
  EXPECT_EQ(second->open(), kSuccess);
  second->release();
  EXPECT_EQ(first->open(), kSuccess) << "giving an interface up closes it";
  EXPECT_EQ(first->close(), kSuccess);
  EXPECT_EQ(first->open(), kSuccess) << "as often as one likes";
}

TEST_P(UsbContract, MovesPacketsOnlyWhileOpenAndReportsAStalledTransfer) {
  auto* plain = pluggedIn(kPlain);  // has no vendor commands
  auto* device = pluggedIn(kInfrared);
  ASSERT_TRUE(plain != nullptr && device != nullptr);
  EXPECT_EQ(transferOut(*device), kErrorNotOpen);
  EXPECT_EQ(device->close(), kErrorNotOpen);
  ASSERT_EQ(device->open(), kSuccess);
  std::uint32_t done = 0;
  EXPECT_EQ(transferOut(*device, &done), kSuccess);
  EXPECT_EQ(done, 7U);
  std::array<std::uint8_t, 64> reply{};
  DeviceRequest request{.bmRequestType = 0xC0, .wLength = reply.size(), .pData = reply.data()};
  EXPECT_EQ(device->deviceRequest(request), kSuccess);
  EXPECT_EQ(request.wLenDone, 64U);
  EXPECT_EQ(reply[0], 0xAA);
  EXPECT_EQ(reply[2], 0x71) << "the command is echoed";
  EXPECT_EQ(device->close(), kSuccess);
  EXPECT_EQ(transferOut(*device), kErrorNotOpen);

  ASSERT_EQ(plain->open(), kSuccess);
  EXPECT_EQ(transferOut(*plain), kErrorStalled);
}

TEST_P(UsbContract, SurvivesBeingUnpluggedWhileOpen) {
  drain(watch(UsbEvent::Terminate, kInfrared));
  auto* device = pluggedIn(kInfrared);
  ASSERT_NE(device, nullptr);
  ASSERT_EQ(device->open(), kSuccess);
  world->beforeNextTransfer(kInfrared, [&] { world->unplug(kInfrared); });
  EXPECT_EQ(transferOut(*device), kErrorNoDevice);
  EXPECT_EQ(transferOut(*device), kErrorNoDevice);
  EXPECT_THAT(events, ::testing::IsEmpty()) << "nothing is told from inside a transfer";
  device->close();
  serve();
  EXPECT_EQ(events, std::vector<std::string>{"out 128 x1"});
  EXPECT_EQ(services.releaseService(lastServices.at(0)), kSuccess);
  EXPECT_EQ(device->open(), kErrorNoDevice);
  EXPECT_NE(services.deviceInterface(device->reference()), nullptr) << "it lives until it is released";
  device->release();
}

TEST_P(UsbContract, TakesAReturningDeviceAsANewOne) {
  drain(watch(UsbEvent::FirstMatch, kInfrared));
  world->plugIn(kInfrared);
  serve();
  ASSERT_EQ(lastServices.size(), 1U);
  auto* before = interfaceOf(lastServices.front());
  ASSERT_NE(before, nullptr);
  ASSERT_EQ(before->open(), kSuccess);
  world->unplug(kInfrared);
  world->plugIn(kInfrared);
  serve();
  auto* after = interfaceOf(lastServices.at(0));
  ASSERT_NE(after, nullptr);
  EXPECT_NE(after->reference(), before->reference());
  EXPECT_EQ(after->open(), kSuccess) << "the old stay does not keep it open";
  EXPECT_EQ(transferOut(*after), kSuccess);
  EXPECT_EQ(transferOut(*before), kErrorNoDevice);
  world->unplug(kInfrared);
  EXPECT_EQ(transferOut(*after), kErrorNoDevice);
}

TEST_P(UsbContract, FailsGentlyForAServiceThatLeftMeanwhile) {
  drain(watch(UsbEvent::FirstMatch, kInfrared));
  world->plugIn(kInfrared);
  serve();
  const auto service = lastServices.at(0);
  UsbPlugIn early = 0;
  ASSERT_EQ(services.createPlugIn(service, early), kSuccess);
  world->unplug(kInfrared);
  serve();
  UsbDeviceInterface* device = nullptr;
  ASSERT_EQ(services.queryDeviceInterface(early, device), kSuccess);
  EXPECT_EQ(device->open(), kErrorNoDevice);
  device->release();

  UsbPlugIn late = 1;
  EXPECT_EQ(services.createPlugIn(service, late), kErrorNoDevice);
  EXPECT_EQ(late, 0U);
  EXPECT_EQ(services.createPlugIn(service + 1000, late), kErrorNotFound);
  EXPECT_EQ(services.releaseService(service + 1000), kErrorNotFound);
  services.destroyPlugIn(early);
  EXPECT_EQ(services.queryDeviceInterface(early, device), kErrorNotFound);
}

TEST_P(UsbContract, DoesNotHandOutADeviceThatLeftBeforeItWasFetched) {
  auto& arrivals = watch(UsbEvent::FirstMatch, kInfrared);
  drain(arrivals);
  world->plugIn(kInfrared);
  world->unplug(kInfrared);
  serve();
  EXPECT_THAT(events, ::testing::IsEmpty());
  EXPECT_EQ(arrivals.next(), 0U);
}

TEST_P(UsbContract, ServesARegistrationMadeInsideACallback) {
  std::vector<UsbService> found;
  const auto registerAnew = [&](UsbIterator&) { found = drain(watchOn(makePort(), kInfrared, {})); };
  drain(watchOn(port, kInfrared, registerAnew));
  world->plugIn(kInfrared);
  serve();
  EXPECT_EQ(found.size(), 1U);
}

}  // namespace touchpanel::testing

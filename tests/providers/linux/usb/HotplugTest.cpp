#include "UsbOnMockBus.h"
#include "contract/LocationId.h"

namespace touchpanel::testing {
namespace {

class Hotplug : public UsbOnMockBus {};

TEST_F(Hotplug, TellsIdenticalDevicesApartByTheirSocket) {
  bus.plugIn("1-2", infrared);
  bus.plugIn("1-3.4", secondInfrared);
  start();
  std::vector<std::uint32_t> locations;
  for (const auto service : watch(UsbEvent::FirstMatch, kProductInfrared0080).services) {
    std::uint32_t location = 0;
    EXPECT_EQ(interfaceFor(service)->getLocationID(location), kSuccess);
    locations.push_back(location);
  }
  EXPECT_THAT(locations, ::testing::UnorderedElementsAre(*locationIdFromKernelName("1-2"),
                                                         *locationIdFromKernelName("1-3.4")));
}

TEST_F(Hotplug, LocatesADeviceBehindHubs) {
  bus.plugIn("2-3.1.17", optical);
  start();
  std::uint32_t location = 0;
  EXPECT_EQ(onlyDevice(kProductOptical)->getLocationID(location), kSuccess);
  EXPECT_EQ(location, 0x02310110U);
}

TEST_F(Hotplug, IgnoresDevicesOfAnotherVendor) {
  bus.plugIn("1-2", infrared, 1, 0x6667);
  start();
  EXPECT_TRUE(watch(UsbEvent::FirstMatch, kProductInfrared0080).services.empty());
}

TEST_F(Hotplug, ReportsTheActiveConfigurationAndItsAbsence) {
  bus.plugIn("1-2", infrared);
  bus.plugIn("1-3", optical, 0);
  start();
  std::uint8_t configuration = 99;
  EXPECT_EQ(onlyDevice(kProductInfrared0080)->getConfiguration(configuration), kSuccess);
  EXPECT_EQ(configuration, 1);
  EXPECT_EQ(onlyDevice(kProductOptical)->getConfiguration(configuration), kSuccess);
  EXPECT_EQ(configuration, 0);
}

TEST_F(Hotplug, DoesNotHandOutADeviceThatLeftBeforeItWasFetched) {
  start();
  auto& arrivals = watch(UsbEvent::FirstMatch, kProductInfrared0080);
  auto& departures = watch(UsbEvent::Terminate, kProductInfrared0080);
  auto& quickPort = usb().createNotificationPort(1);
  auto& seenElsewhere = watchOn(quickPort, UsbEvent::FirstMatch, kProductInfrared0080);
  auto& missedElsewhere = watchOn(quickPort, UsbEvent::Terminate, kProductInfrared0080);
  bus.plugIn("1-2", infrared);
  performUntil(quickPort, seenElsewhere, 1);
  bus.unplug("1-2");
  performUntil(quickPort, missedElsewhere, 1);
  performUntil(departures, 1);
  EXPECT_EQ(arrivals.calls, 0);
  EXPECT_EQ(arrivals.iterator->next(), 0U);
}

TEST_F(Hotplug, MakesNoPlugInForAServiceWhoseDeviceIsGone) {
  bus.plugIn("1-2", infrared);
  start();
  auto& arrivals = watch(UsbEvent::FirstMatch, kProductInfrared0080);
  auto& departures = watch(UsbEvent::Terminate, kProductInfrared0080);
  bus.unplug("1-2");
  performUntil(departures, 1);
  UsbPlugIn plugIn = 1;
  EXPECT_EQ(usb().createPlugIn(arrivals.services[0], plugIn), kErrorNoDevice);
  EXPECT_EQ(plugIn, 0U);
  EXPECT_EQ(usb().createPlugIn(4711, plugIn), kErrorNotFound);
}

TEST_F(Hotplug, TellsNothingFromInsideATransfer) {
  bus.plugIn("1-2", infrared);
  bus.plugIn("1-3", optical);
  start();
  auto* device = onlyDevice(kProductInfrared0080);
  auto& departures = watch(UsbEvent::Terminate, kProductOptical);
  ASSERT_EQ(device->open(), kSuccess);
  bus.setBeforeTransfer([this](const std::string&) { bus.unplug("1-3"); });

  // Transfer after transfer, until libusb has taken the departure in during one of them.
  std::array<std::uint8_t, 64> reply{};
  while (!becomesReadable(port(), 0)) {
    DeviceRequest request{0xC0, 0, 0, 0, 64, reply.data(), 0};
    ASSERT_EQ(device->deviceRequest(request), kSuccess);
  }
  for (int i = 0; i < 20; ++i) {
    DeviceRequest request{0xC0, 0, 0, 0, 64, reply.data(), 0};
    ASSERT_EQ(device->deviceRequest(request), kSuccess);
  }
  EXPECT_EQ(departures.calls, 0);
  EXPECT_TRUE(becomesReadable(port(), 0));
  performUntil(departures, 1);
}

TEST_F(Hotplug, ServesARegistrationMadeInsideACallback) {
  start();
  std::vector<UsbService> found;
  auto matching = usb().matchingDictionary(class_name::kUsbDevice);
  matching->set("idVendor", std::int32_t{kVendor});
  matching->set("idProduct", std::int32_t{kProductInfrared0080});
  UsbIterator* first = nullptr;
  UsbNotificationPort* fresh = nullptr;
  const auto registerAnew = [&](UsbIterator&) {
    fresh = &usb().createNotificationPort(1);
    UsbIterator* second = nullptr;
    usb().addMatchingNotification(
        *fresh, UsbEvent::FirstMatch, *matching, [](UsbIterator&) {}, second);
    while (const auto service = second->next()) found.push_back(service);
  };
  ASSERT_EQ(usb().addMatchingNotification(port(), UsbEvent::FirstMatch, *matching, registerAnew, first),
            kSuccess);
  ASSERT_EQ(first->next(), 0U);  // which arms it
  bus.plugIn("1-2", infrared);
  while (fresh == nullptr && becomesReadable(port())) port().runLoopSource().perform();
  EXPECT_EQ(found.size(), 1U);
}

}  // namespace
}  // namespace touchpanel::testing

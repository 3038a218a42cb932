#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "contract/LocationId.h"

namespace touchpanel {
namespace {

using Ports = std::vector<std::uint8_t>;

struct Row {
  std::uint8_t bus;
  Ports ports;
  std::uint32_t locationId;
};

TEST(LocationId, IsMadeOfBusAndPorts) {
  for (const Row& row :
       {Row{20, {1}, 0x14100000}, Row{20, {1, 2, 3}, 0x14123000}, Row{1, {}, 0x01000000},
        Row{255, {15, 15, 15, 15, 15, 15}, 0xFFFFFFFF}, Row{1, {16}, 0x01010000}, Row{1, {23, 4}, 0x01017400},
        Row{1, {4, 23}, 0x01401700}, Row{1, {255, 1, 2, 3}, 0x010FF123}, Row{1, {1, 2, 255}, 0x01120FF0}})
    EXPECT_EQ(locationIdFor(row.bus, row.ports), row.locationId) << ::testing::PrintToString(row.ports);
}

TEST(LocationId, DiffersBetweenAnyTwoSocketsAndIsNeverNothing) {
  std::set<std::uint32_t> seen = {0};
  const auto add = [&](std::uint8_t bus, const Ports& ports) {
    EXPECT_TRUE(seen.insert(locationIdFor(bus, ports)).second) << ::testing::PrintToString(ports);
  };
  add(0, {});
  add(0, {0});
  for (const std::uint8_t bus : Ports{1, 2, 255})
    for (int first = 1; first < 256; ++first) {
      const auto root = static_cast<std::uint8_t>(first);
      add(bus, {root});
      for (std::uint8_t second = 1; second < 32; ++second) add(bus, {root, second});
      for (const std::uint8_t third : Ports{1, 15, 16}) add(bus, {root, 1, third});
      // Paths too long for their digits.
      add(bus, {17, 200, root});
      add(bus, {1, 1, 1, 1, 1, 1, root});
    }
}

TEST(LocationId, IsTheSameFromTheKernelsNameOfTheDevice) {
  const std::pair<const char*, std::uint32_t> names[] = {{"3-1", 0x03100000},
                                                         {"3-1.4", 0x03140000},
                                                         {"3-1.4:1.0", 0x03140000},
                                                         {"12-23.4.1:2.3", 0x0C017410},
                                                         {"usb3", 0x03000000}};
  for (const auto& [name, locationId] : names) EXPECT_EQ(locationIdFromKernelName(name), locationId) << name;
  for (const char* name : {"", "usb", "usbx", "usb3-1", "3", "3-", "3-1.", "3-1..2", "3.1", "-1", "3-1/4",
                           "3-256", "256-1", "0003:6666:0080.0001", "input7", "3-1 "})
    EXPECT_EQ(locationIdFromKernelName(name), std::nullopt) << name;
}

}  // namespace
}  // namespace touchpanel

#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "contract/LocationId.h"

namespace touchpanel {
namespace {

using Ports = std::vector<std::uint8_t>;

TEST(LocationId, IsMadeOfBusAndPorts) {
  struct Row {
    std::uint8_t bus;
    Ports ports;
    std::uint32_t locationId;
  };
  const Row rows[] = {
      {20, {1}, 0x14100000},        {20, {1, 2, 3}, 0x14123000},
      {1, {}, 0x01000000},          {255, {15, 15, 15, 15, 15, 15}, 0xFFFFFFFF},
      {1, {16}, 0x01010000},        {1, {23, 4}, 0x01017400},
      {1, {4, 23}, 0x01401700},     {1, {255, 1, 2, 3}, 0x010FF123},
      {1, {1, 2, 255}, 0x01120FF0},
  };
  for (const auto& row : rows)
    EXPECT_EQ(locationIdFor(row.bus, row.ports), row.locationId) << ::testing::PrintToString(row.ports);
}

TEST(LocationId, DiffersBetweenAnyTwoSockets) {
  std::set<std::uint32_t> seen;
  std::size_t places = 0;
  const auto add = [&](std::uint8_t bus, const Ports& ports) {
    ++places;
    const auto id = locationIdFor(bus, ports);
    EXPECT_NE(id, 0U);
    EXPECT_TRUE(seen.insert(id).second) << int{bus} << ' ' << ::testing::PrintToString(ports);
  };
  for (const std::uint8_t bus : Ports{1, 2, 255}) {
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
  EXPECT_EQ(seen.size(), places);
}

TEST(LocationId, IsNeverNothing) {
  EXPECT_NE(locationIdFor(0, {}), 0U);
  EXPECT_NE(locationIdFor(0, Ports{0}), 0U);
}

TEST(LocationId, IsTheSameFromTheKernelsNameOfTheDevice) {
  struct Row {
    const char* name;
    std::uint8_t bus;
    Ports ports;
  };
  for (const Row& row : {Row{"3-1", 3, {1}}, Row{"3-1.4", 3, {1, 4}}, Row{"3-1.4:1.0", 3, {1, 4}},
                         Row{"12-23.4.1:2.3", 12, {23, 4, 1}}, Row{"usb3", 3, {}}})
    EXPECT_EQ(locationIdFromKernelName(row.name), locationIdFor(row.bus, row.ports)) << row.name;
  for (const char* name : {"", "usb", "usbx", "usb3-1", "3", "3-", "3-1.", "3-1..2", "3.1", "-1", "3-1/4",
                           "3-256", "256-1", "0003:6666:0080.0001", "input7", "3-1 "})
    EXPECT_EQ(locationIdFromKernelName(name), std::nullopt) << name;
}

}  // namespace
}  // namespace touchpanel

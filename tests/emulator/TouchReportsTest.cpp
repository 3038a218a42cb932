#include <map>

#include <gtest/gtest.h>

#include "emulator/device/TouchReports.h"

namespace touchpanel::emulator {
namespace {

using Report = std::vector<std::uint8_t>;

/// Bits of every input and feature report that a descriptor declares, by report number; 0 when an item is cut
/// off.
std::map<std::uint32_t, std::uint32_t> declaredBits(std::span<const std::uint8_t> descriptor) {
  std::map<std::uint32_t, std::uint32_t> bits;
  std::uint32_t size = 0, count = 0, id = 0, depth = 0;
  for (std::size_t at = 0; at < descriptor.size();) {
    const std::uint8_t prefix = descriptor[at++];
    const std::size_t bytes = (prefix & 3) == 3 ? 4 : prefix & 3;
    if (at + bytes > descriptor.size()) return {};
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < bytes; ++i) value |= static_cast<std::uint32_t>(descriptor[at++]) << (8 * i);
    switch (prefix & 0xFC) {
      case 0x74:
        size = value;
        break;
      case 0x94:
        count = value;
        break;
      case 0x84:
        id = value;
        break;
      case 0xA0:
        ++depth;
        break;
      case 0xC0:
        --depth;
        break;
      case 0x80:
      case 0xB0:
        bits[id] += size * count;
        break;
      default:
        break;
    }
  }
  return depth == 0 ? bits : std::map<std::uint32_t, std::uint32_t>{};
}

TEST(TouchReports, AreAsLongAsTheDescriptorSays) {
  TouchReports multi(ReportStyle::MultiTouch), single(ReportStyle::SingleTouch);
  const auto multiBits = declaredBits(reportDescriptor(ReportStyle::MultiTouch));
  const auto singleBits = declaredBits(reportDescriptor(ReportStyle::SingleTouch));
  EXPECT_EQ(multiBits, (std::map<std::uint32_t, std::uint32_t>{{kTouchReport, 63 * 8},
                                                               {kContactCountMaximumReport, 8}}));
  EXPECT_EQ(singleBits, (std::map<std::uint32_t, std::uint32_t>{{0, 5 * 8}}));
  for (std::size_t finger = 0; finger < kFingers; ++finger) {
    EXPECT_EQ(multi.touch(finger, {1, 1}, 0).size(), 64U);
    EXPECT_EQ(single.touch(finger, {1, 1}, 0).size(), 5U);
  }
}

TEST(TouchReports, TellEveryFingerAndALeavingOneOnceMore) {
  TouchReports reports(ReportStyle::MultiTouch);
  auto shortened = [](Report report) {
    Report told(report.begin(), report.begin() + 1 + 6 * report.back());
    told.insert(told.end(), report.end() - 3, report.end());
    return told;
  };
  EXPECT_EQ(shortened(reports.touch(3, {0x0102, 0x7FFF}, 0x1234)),
            (Report{1, 1, 3, 0x02, 0x01, 0xFF, 0x7F, 0x34, 0x12, 1}));
  EXPECT_EQ(shortened(reports.touch(0, {5, 6}, 1)),
            (Report{1, 1, 0, 5, 0, 6, 0, 1, 3, 2, 1, 0xFF, 0x7F, 1, 0, 2}));
  EXPECT_EQ(shortened(reports.lift(3, 2)), (Report{1, 1, 0, 5, 0, 6, 0, 0, 3, 2, 1, 0xFF, 0x7F, 2, 0, 2}));
  EXPECT_EQ(shortened(reports.touch(0, {7, 6}, 3)), (Report{1, 1, 0, 7, 0, 6, 0, 3, 0, 1}));
  EXPECT_TRUE(reports.lift(3, 4).empty());
}

TEST(TouchReports, OfOneFingerStayWithTheOneThatCameFirst) {
  TouchReports reports(ReportStyle::SingleTouch);
  EXPECT_EQ(reports.touch(5, {0x0102, 3}, 0), (Report{1, 2, 1, 3, 0}));
  EXPECT_EQ(reports.touch(0, {9, 9}, 0), (Report{1, 2, 1, 3, 0}));
  EXPECT_EQ(reports.lift(5, 0), (Report{0, 2, 1, 3, 0}));
  EXPECT_EQ(reports.touch(0, {8, 9}, 0), (Report{1, 8, 0, 9, 0}));
  reports.reset();
  EXPECT_TRUE(reports.lift(0, 0).empty());
}

}  // namespace
}  // namespace touchpanel::emulator

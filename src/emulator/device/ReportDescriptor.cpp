#include "emulator/device/ReportDescriptor.h"

#include <utility>

namespace touchpanel::emulator {
namespace {

// Tags of short items; the two lowest bits are left for the size of the value.
enum class Item : std::uint8_t {
  UsagePage = 0x04,
  Usage = 0x08,
  Collection = 0xA0,
  EndCollection = 0xC0,
  LogicalMinimum = 0x14,
  LogicalMaximum = 0x24,
  PhysicalMaximum = 0x44,
  UnitExponent = 0x54,
  Unit = 0x64,
  ReportSize = 0x74,
  ReportId = 0x84,
  ReportCount = 0x94,
  Input = 0x80,
  Feature = 0xB0
};

constexpr std::int32_t kGenericDesktopPage = 0x01, kX = 0x30, kY = 0x31;
constexpr std::int32_t kDigitizerPage = 0x0D, kTouchScreen = 0x04, kFinger = 0x22, kTipSwitch = 0x42,
                       kContactId = 0x51, kContactCount = 0x54, kContactCountMaximum = 0x55, kScanTime = 0x56;
constexpr std::int32_t kApplication = 1, kLogical = 2;
constexpr std::int32_t kVariable = 2, kPadding = 3;
constexpr std::int32_t kCentimetres = 0x11, kSeconds = 0x1001, kNoUnit = 0;
constexpr std::int32_t kTimesHundredth = 0x0E, kTimesTenThousandth = 0x0C, kTimesOne = 0;  // 4-bit exponents
// A screen of 24 inches, in tenths of millimetres.
constexpr std::int32_t kWidth = 5313, kHeight = 2988;
constexpr std::int32_t kLargestCoordinate = 32767;

class Descriptor {
 public:
  Descriptor& put(Item item, std::int32_t value) {
    const std::size_t bytes = sizeOf(value);
    const std::uint8_t sizeBits = bytes == 4 ? 3 : static_cast<std::uint8_t>(bytes);
    bytes_.push_back(static_cast<std::uint8_t>(static_cast<std::uint8_t>(item) | sizeBits));
    for (std::size_t i = 0; i < bytes; ++i) bytes_.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    return *this;
  }
  Descriptor& end() {
    bytes_.push_back(static_cast<std::uint8_t>(Item::EndCollection));
    return *this;
  }
  std::vector<std::uint8_t> take() { return std::move(bytes_); }

 private:
  // Values are signed: 65535 needs four bytes, or it would read as -1.
  static std::size_t sizeOf(std::int32_t value) {
    if (value == static_cast<std::int8_t>(value)) return 1;
    return value == static_cast<std::int16_t>(value) ? 2 : 4;
  }
  std::vector<std::uint8_t> bytes_;
};

void putTip(Descriptor& to) {
  to.put(Item::UsagePage, kDigitizerPage).put(Item::Usage, kTipSwitch);
  to.put(Item::LogicalMinimum, 0).put(Item::LogicalMaximum, 1).put(Item::ReportSize, 1);
  to.put(Item::ReportCount, 1).put(Item::Input, kVariable);
  to.put(Item::ReportCount, 7).put(Item::Input, kPadding);
}

void putPosition(Descriptor& to) {
  to.put(Item::UsagePage, kGenericDesktopPage).put(Item::LogicalMaximum, kLargestCoordinate);
  to.put(Item::ReportSize, 16).put(Item::ReportCount, 1);
  to.put(Item::UnitExponent, kTimesHundredth).put(Item::Unit, kCentimetres);
  to.put(Item::Usage, kX).put(Item::PhysicalMaximum, kWidth).put(Item::Input, kVariable);
  to.put(Item::Usage, kY).put(Item::PhysicalMaximum, kHeight).put(Item::Input, kVariable);
  to.put(Item::PhysicalMaximum, 0).put(Item::UnitExponent, kTimesOne).put(Item::Unit, kNoUnit);
}

void putTouchScreen(Descriptor& to) {
  to.put(Item::UsagePage, kDigitizerPage).put(Item::Usage, kTouchScreen);
  to.put(Item::Collection, kApplication);
}

}  // namespace

std::vector<std::uint8_t> multiTouchDescriptor(std::size_t fingers, std::uint8_t touchReport,
                                               std::uint8_t maximumReport) {
  const auto count = static_cast<std::int32_t>(fingers);
  Descriptor to;
  putTouchScreen(to);
  to.put(Item::ReportId, touchReport);
  for (std::int32_t i = 0; i < count; ++i) {
    to.put(Item::UsagePage, kDigitizerPage).put(Item::Usage, kFinger).put(Item::Collection, kLogical);
    putTip(to);
    to.put(Item::Usage, kContactId).put(Item::LogicalMaximum, count - 1).put(Item::ReportSize, 8);
    to.put(Item::ReportCount, 1).put(Item::Input, kVariable);
    putPosition(to);
    to.end();
  }
  to.put(Item::UsagePage, kDigitizerPage).put(Item::Usage, kScanTime).put(Item::LogicalMaximum, 0xFFFF);
  to.put(Item::ReportSize, 16).put(Item::ReportCount, 1);
  to.put(Item::UnitExponent, kTimesTenThousandth).put(Item::Unit, kSeconds).put(Item::Input, kVariable);
  to.put(Item::UnitExponent, kTimesOne).put(Item::Unit, kNoUnit);
  to.put(Item::Usage, kContactCount).put(Item::LogicalMaximum, count).put(Item::ReportSize, 8);
  to.put(Item::Input, kVariable);
  to.put(Item::ReportId, maximumReport).put(Item::Usage, kContactCountMaximum).put(Item::Feature, kVariable);
  return to.end().take();
}

std::vector<std::uint8_t> singleTouchDescriptor() {
  Descriptor to;
  putTouchScreen(to);
  to.put(Item::Usage, kFinger).put(Item::Collection, kLogical);
  putTip(to);
  putPosition(to);
  return to.end().end().take();
}

}  // namespace touchpanel::emulator

#include "emulator/device/UsbTouchscreen.h"

#include <algorithm>
#include <string_view>

#include "platform_build/BuildConstants.h"

namespace touchpanel::emulator {
namespace {

// bmRequestType: direction, type and recipient.
constexpr std::uint8_t kFromDevice = 0x80;
constexpr std::uint8_t kTypeMask = 0x60, kStandard = 0x00, kClass = 0x20, kVendor = 0x40;
constexpr std::uint8_t kRecipientMask = 0x1F, kToDevice = 0, kToInterface = 1;

enum StandardRequest : std::uint8_t {
  GetStatus = 0,
  ClearFeature = 1,
  GetDescriptor = 6,
  GetConfiguration = 8,
  SetConfiguration = 9,
  GetInterface = 10,
  SetInterface = 11
};
enum HidRequest : std::uint8_t { GetReport = 1, GetIdle = 2, SetIdle = 0x0A };
enum DescriptorType : std::uint8_t { Device = 1, Configuration = 2, String = 3, Hid = 0x21, Report = 0x22 };
enum StringIndex : std::uint8_t { Languages = 0, Manufacturer = 1, Product = 2 };
enum ReportType : std::uint8_t { InputReport = 1, FeatureReport = 3 };

constexpr std::uint8_t kOnlyConfiguration = 1;
constexpr std::uint8_t kControlPacketSize = 64;
constexpr std::uint8_t kReportEndpoint = 0x81, kInterrupt = 3, kPollMilliseconds = 2;
constexpr std::uint8_t kHidClass = 3;
constexpr std::size_t kDeviceDescriptorSize = 18, kConfigurationSize = 9, kInterfaceSize = 9, kHidSize = 9,
                      kEndpointSize = 7;
constexpr std::size_t kVendorReplySize = 64;
// More than a reader that is alive ever leaves waiting.
constexpr std::size_t kLongestQueue = 256;

constexpr std::uint8_t low(std::size_t number) { return static_cast<std::uint8_t>(number); }
constexpr std::uint8_t high(std::size_t number) { return static_cast<std::uint8_t>(number >> 8); }

ControlAnswer stalled() { return {ControlOutcome::Stalled, {}}; }
ControlAnswer answer(std::vector<std::uint8_t> data) { return {ControlOutcome::Done, std::move(data)}; }

ReportStyle styleOf(std::uint16_t productId) {
  return kindOf(productId) == DeviceKind::ConfigurationOnly ? ReportStyle::SingleTouch
                                                            : ReportStyle::MultiTouch;
}

std::string_view productName(std::uint16_t productId) {
  return kindOf(productId) == DeviceKind::Optical ? "Optical Touchscreen" : "Infrared Touchscreen";
}

std::vector<std::uint8_t> hidDescriptor(ReportStyle style) {
  const std::size_t reportSize = reportDescriptor(style).size();
  return {kHidSize, Hid, 0x11, 0x01, 0, 1, Report, low(reportSize), high(reportSize)};
}

std::vector<std::uint8_t> configurationDescriptor(ReportStyle style) {
  constexpr std::size_t total = kConfigurationSize + kInterfaceSize + kHidSize + kEndpointSize;
  constexpr std::uint8_t busPowered = 0x80, halfAmpere = 250;
  std::vector<std::uint8_t> bytes = {kConfigurationSize,
                                     Configuration,
                                     low(total),
                                     high(total),
                                     1,
                                     kOnlyConfiguration,
                                     0,
                                     busPowered,
                                     halfAmpere,
                                     kInterfaceSize,
                                     0x04 /*interface*/,
                                     0,
                                     0,
                                     1,
                                     kHidClass,
                                     0,
                                     0,
                                     0};
  const std::vector<std::uint8_t> hid = hidDescriptor(style);
  bytes.insert(bytes.end(), hid.begin(), hid.end());
  bytes.insert(bytes.end(), {kEndpointSize, 0x05 /*endpoint*/, kReportEndpoint, kInterrupt,
                             kControlPacketSize, 0, kPollMilliseconds});
  return bytes;
}

std::vector<std::uint8_t> deviceDescriptor(const firmware::DeviceDescription& device) {
  const std::uint8_t minor = device.version.empty() ? 0 : device.version[0];
  const std::uint8_t major = device.version.size() < 2 ? 0 : device.version[1];
  return {kDeviceDescriptorSize,
          Device,
          0x00,
          0x02,
          0,
          0,
          0,
          kControlPacketSize,  //
          low(TOUCH_VENDOR_ID),
          high(TOUCH_VENDOR_ID),
          low(device.productId),
          high(device.productId),
          minor,
          major,
          Manufacturer,
          Product,
          0,
          1};
}

std::vector<std::uint8_t> stringDescriptor(std::string_view text) {
  std::vector<std::uint8_t> bytes = {low(2 + 2 * text.size()), String};
  for (char character : text) bytes.insert(bytes.end(), {static_cast<std::uint8_t>(character), 0});
  return bytes;
}

}  // namespace

ControlSetup ControlSetup::from(const std::array<std::uint8_t, 8>& bytes) {
  auto word = [&](std::size_t at) { return static_cast<std::uint16_t>(bytes[at] | bytes[at + 1] << 8); };
  return {bytes[0], bytes[1], word(2), word(4), word(6)};
}

UsbTouchscreen::UsbTouchscreen(firmware::DeviceDescription description, firmware::Distortion distortion,
                               std::uint32_t seed)
    : firmware_(std::move(description)),
      surface_(distortion, seed),
      style_(styleOf(firmware_.stored().productId)),
      reports_(style_) {}

ControlAnswer UsbTouchscreen::control(const ControlSetup& setup, std::span<const std::uint8_t> sent) {
  ControlAnswer result = stalled();
  switch (setup.requestType & kTypeMask) {
    case kStandard:
      result = standardRequest(setup);
      break;
    case kClass:
      result = hidRequest(setup);
      break;
    case kVendor:
      result = vendorRequest(setup, sent);
      break;
    default:
      break;
  }
  if (result.data.size() > setup.length) result.data.resize(setup.length);
  return result;
}

ControlAnswer UsbTouchscreen::standardRequest(const ControlSetup& setup) {
  switch (setup.request) {
    case GetDescriptor: {
      auto found = descriptor(high(setup.value), low(setup.value));
      return found ? answer(std::move(*found)) : stalled();
    }
    case SetConfiguration:
      if (setup.value > kOnlyConfiguration) return stalled();
      configuration_ = low(setup.value);
      return answer({});
    case GetConfiguration:
      return answer({configuration_});
    case GetStatus:
      return answer({0, 0});
    case GetInterface:
      return answer({0});
    case ClearFeature:
    case SetInterface:
      return answer({});
    default:
      return stalled();
  }
}

std::optional<std::vector<std::uint8_t>> UsbTouchscreen::descriptor(std::uint8_t type,
                                                                    std::uint8_t index) const {
  switch (type) {
    case Device:
      return deviceDescriptor(firmware_.stored());
    case Configuration:
      return configurationDescriptor(style_);
    case Hid:
      return hidDescriptor(style_);
    case Report: {
      const auto bytes = reportDescriptor(style_);
      return std::vector<std::uint8_t>(bytes.begin(), bytes.end());
    }
    case String:
      if (index == Languages) return std::vector<std::uint8_t>{4, String, 0x09, 0x04};
      if (index == Manufacturer) return stringDescriptor("VARNEXO");
      if (index == Product) return stringDescriptor(productName(firmware_.stored().productId));
      return std::nullopt;
    default:
      return std::nullopt;
  }
}

ControlAnswer UsbTouchscreen::hidRequest(const ControlSetup& setup) {
  if ((setup.requestType & kRecipientMask) != kToInterface) return stalled();
  switch (setup.request) {
    case GetReport:
      if (high(setup.value) == InputReport) return answer(reports_.current(0));
      if (style_ == ReportStyle::MultiTouch && high(setup.value) == FeatureReport &&
          low(setup.value) == kContactCountMaximumReport) {
        return answer({kContactCountMaximumReport, kFingers});
      }
      return stalled();
    case GetIdle:
      return answer({idleRate_});
    case SetIdle:
      idleRate_ = high(setup.value);
      return answer({});
    default:
      return stalled();
  }
}

ControlAnswer UsbTouchscreen::vendorRequest(const ControlSetup& setup, std::span<const std::uint8_t> sent) {
  if ((setup.requestType & kRecipientMask) != kToDevice || setup.request != 0) return stalled();
  auto outcome = [](firmware::TransferResult result) {
    switch (result) {
      case firmware::TransferResult::Done:
        return ControlOutcome::Done;
      case firmware::TransferResult::Stalled:
        return ControlOutcome::Stalled;
      case firmware::TransferResult::Gone:
        break;
    }
    return ControlOutcome::NoAnswer;
  };
  if (!(setup.requestType & kFromDevice)) {
    if (packetsUntilUnplug_ && *packetsUntilUnplug_ > 0) --*packetsUntilUnplug_;
    if (wantsUnplug()) return {ControlOutcome::NoAnswer, {}};
    return {outcome(firmware_.receive(sent)), {}};
  }
  std::vector<std::uint8_t> reply(kVendorReplySize);
  std::size_t length = 0;
  const ControlOutcome result = outcome(firmware_.reply(reply, length));
  reply.resize(result == ControlOutcome::Done ? std::min(length, reply.size()) : 0);
  return {result, std::move(reply)};
}

std::vector<std::uint8_t> UsbTouchscreen::takeReport() {
  if (waiting_.empty()) return {};
  std::vector<std::uint8_t> report = std::move(waiting_.front());
  waiting_.pop_front();
  return report;
}

void UsbTouchscreen::setListened(bool listened) {
  listened_ = listened;
  if (listened) return;
  droppedReports_ += waiting_.size();
  waiting_.clear();
}

firmware::RawPoint UsbTouchscreen::touch(std::size_t finger, firmware::ScreenFraction point,
                                         std::uint16_t scanTime) {
  const firmware::RawPoint raw = surface_.rawFor(point);
  queueReport(reports_.touch(finger, raw, scanTime));
  return raw;
}

void UsbTouchscreen::lift(std::size_t finger, std::uint16_t scanTime) {
  queueReport(reports_.lift(finger, scanTime));
}

void UsbTouchscreen::queueReport(std::vector<std::uint8_t> report) {
  if (report.empty()) return;
  if (!listened_ || waiting_.size() >= kLongestQueue) {
    ++droppedReports_;
    return;
  }
  waiting_.push_back(std::move(report));
}

void UsbTouchscreen::powerCycle() {
  setListened(false);
  reports_.reset();
  configuration_ = 0;
  packetsUntilUnplug_.reset();
  firmware_.powerCycle();
}

}  // namespace touchpanel::emulator

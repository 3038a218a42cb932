#include "emulator/device/UsbTouchscreen.h"

#include <algorithm>
#include <string_view>

#include "platform_build/BuildConstants.h"

namespace touchpanel::emulator {
namespace {

using firmware::TransferResult;

// bmRequestType: direction, type and recipient.
constexpr std::uint8_t kFromDevice = 0x80;
constexpr std::uint8_t kTypeMask = 0x60, kStandard = 0x00, kClass = 0x20, kVendor = 0x40;
constexpr std::uint8_t kRecipientMask = 0x1F, kToDevice = 0, kToInterface = 1;

enum FeatureRequest : std::uint8_t { GetStatus = 0, ClearFeature = 1 };
enum DeviceRequest : std::uint8_t { GetDescriptor = 6, GetConfiguration = 8, SetConfiguration = 9 };
enum InterfaceRequest : std::uint8_t { GetInterface = 10, SetInterface = 11 };
enum HidRequest : std::uint8_t { GetReport = 1, GetIdle = 2, SetIdle = 0x0A };
enum DescriptorType : std::uint8_t { Device = 1, Configuration, String, Interface, Endpoint };
enum HidDescriptor : std::uint8_t { Hid = 0x21, Report = 0x22 };
enum StringIndex : std::uint8_t { Languages = 0, Manufacturer = 1, Product = 2 };
enum ReportType : std::uint8_t { InputReport = 1, FeatureReport = 3 };

constexpr std::uint8_t kOnlyConfiguration = 1;
constexpr std::uint8_t kPacketSize = 64;  // of either endpoint
constexpr std::uint8_t kReportEndpoint = 0x81, kInterrupt = 3, kPollMilliseconds = 2;
constexpr std::uint8_t kHidClass = 3;
constexpr std::size_t kDeviceDescriptorSize = 18, kConfigurationSize = 9, kInterfaceSize = 9, kHidSize = 9,
                      kEndpointSize = 7;
constexpr std::size_t kVendorReplySize = 64;
// More than a reader that is alive ever leaves waiting.
constexpr std::size_t kLongestQueue = 256;

constexpr std::uint8_t low(std::size_t number) { return static_cast<std::uint8_t>(number); }
constexpr std::uint8_t high(std::size_t number) { return static_cast<std::uint8_t>(number >> 8); }

ControlAnswer stalled() { return {TransferResult::Stalled, {}}; }
ControlAnswer answer(std::vector<std::uint8_t> data) { return {TransferResult::Done, std::move(data)}; }

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
  constexpr std::uint8_t busPowered = 0x80, halfAmpere = 250, oneInterface = 1, oneEndpoint = 1;
  std::vector<std::uint8_t> bytes = {kConfigurationSize, Configuration,      low(total), high(total),
                                     oneInterface,       kOnlyConfiguration, 0,          busPowered,
                                     halfAmpere};
  auto append = [&](const std::vector<std::uint8_t>& part) {
    bytes.insert(bytes.end(), part.begin(), part.end());
  };
  append({kInterfaceSize, Interface, 0, 0, oneEndpoint, kHidClass, 0, 0, 0});
  append(hidDescriptor(style));
  append({kEndpointSize, Endpoint, kReportEndpoint, kInterrupt, kPacketSize, 0, kPollMilliseconds});
  return bytes;
}

std::vector<std::uint8_t> deviceDescriptor(const firmware::DeviceDescription& device) {
  constexpr std::size_t usb2 = 0x0200;
  const std::uint8_t minor = device.version.empty() ? 0 : device.version[0];
  const std::uint8_t major = device.version.size() < 2 ? 0 : device.version[1];
  std::vector<std::uint8_t> bytes = {
      kDeviceDescriptorSize, Device, low(usb2), high(usb2), 0, 0, 0, kPacketSize};
  for (const std::size_t id : {std::size_t{TOUCH_VENDOR_ID}, std::size_t{device.productId}}) {
    bytes.push_back(low(id));
    bytes.push_back(high(id));
  }
  bytes.insert(bytes.end(), {minor, major, Manufacturer, Product, 0, kOnlyConfiguration});
  return bytes;
}

std::vector<std::uint8_t> stringDescriptor(std::string_view text) {
  std::vector<std::uint8_t> bytes = {low(2 + 2 * text.size()), String};
  for (char character : text) bytes.insert(bytes.end(), {static_cast<std::uint8_t>(character), 0});
  return bytes;
}

}  // namespace

ControlSetup ControlSetup::from(std::span<const std::uint8_t, 8> bytes) {
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
  const std::uint8_t type = setup.requestType & kTypeMask;
  ControlAnswer result = type == kStandard ? standardRequest(setup)
                         : type == kClass  ? hidRequest(setup)
                         : type == kVendor ? vendorRequest(setup, sent)
                                           : stalled();
  if (result.data.size() > setup.length) result.data.resize(setup.length);
  return result;
}

ControlAnswer UsbTouchscreen::standardRequest(const ControlSetup& setup) {
  switch (setup.request) {
    case GetDescriptor:
      return descriptor(high(setup.value), low(setup.value));
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

ControlAnswer UsbTouchscreen::descriptor(std::uint8_t type, std::uint8_t index) const {
  if (type == Device) return answer(deviceDescriptor(firmware_.stored()));
  if (type == Configuration) return answer(configurationDescriptor(style_));
  if (type == Hid) return answer(hidDescriptor(style_));
  if (type == Report) {
    const auto bytes = reportDescriptor(style_);
    return answer({bytes.begin(), bytes.end()});
  }
  if (type != String) return stalled();
  if (index == Languages) return answer({4, String, 0x09, 0x04});
  if (index == Manufacturer) return answer(stringDescriptor("VARNEXO"));
  return index == Product ? answer(stringDescriptor(productName(firmware_.stored().productId))) : stalled();
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
  if (!(setup.requestType & kFromDevice)) {
    if (packetsUntilUnplug_ && *packetsUntilUnplug_ > 0) --*packetsUntilUnplug_;
    if (wantsUnplug()) return {TransferResult::Gone, {}};
    return {firmware_.receive(sent), {}};
  }
  std::vector<std::uint8_t> reply(kVendorReplySize);
  std::size_t length = 0;
  const TransferResult result = firmware_.reply(reply, length);
  reply.resize(result == TransferResult::Done ? std::min(length, reply.size()) : 0);
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

#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <vector>

#include "emulator/device/TouchReports.h"
#include "firmware/Firmware.h"
#include "firmware/TouchSurface.h"

namespace touchpanel::emulator {

/// The first stage of a control transfer, field by field.
struct ControlSetup {
  std::uint8_t requestType = 0;
  std::uint8_t request = 0;
  std::uint16_t value = 0;
  std::uint16_t index = 0;
  std::uint16_t length = 0;
  static ControlSetup from(std::span<const std::uint8_t, 8> bytes);
};

/// How a control transfer ended; `data` is what the host gets of one from the device.
struct ControlAnswer {
  firmware::TransferResult outcome = firmware::TransferResult::Done;
  std::vector<std::uint8_t> data;
};

/// A touchscreen as a USB host sees it: descriptors, standard and HID requests, the firmware behind vendor
/// requests, and a queue of input reports. Knows neither a bus nor a kernel. Infrared and optical
/// touchscreens report ten fingers with contact ids, the configuration-only kind one finger.
class UsbTouchscreen {
 public:
  UsbTouchscreen(firmware::DeviceDescription description, firmware::Distortion distortion,
                 std::uint32_t seed);

  /// One control transfer on endpoint 0; `sent` is what came with one to the device.
  ControlAnswer control(const ControlSetup& setup, std::span<const std::uint8_t> sent);

  /// The oldest input report that nobody has taken; empty when there is none.
  std::vector<std::uint8_t> takeReport();
  /// Whether anyone reads input reports. Without a reader reports are dropped, as on a bus that nobody polls.
  void setListened(bool listened);
  bool listened() const { return listened_; }

  /// A finger (0..kFingers-1) comes to `point` or moves there. Returns the raw point that the sensor saw.
  firmware::RawPoint touch(std::size_t finger, firmware::ScreenFraction point, std::uint16_t scanTime);
  void lift(std::size_t finger, std::uint16_t scanTime);

  /// Unplugged and plugged in again: no configuration, no finger, no report waiting; stored blocks stay.
  void powerCycle();
  /// Pulls the plug by itself after that many more vendor packets have arrived; see wantsUnplug().
  void unplugAfter(std::uint32_t packets) { packetsUntilUnplug_ = packets; }
  bool wantsUnplug() const { return packetsUntilUnplug_ == 0; }

  std::uint8_t configuration() const { return configuration_; }
  /// Input reports lost so far because nobody read them.
  std::uint64_t droppedReports() const { return droppedReports_; }
  firmware::Firmware& firmware() { return firmware_; }
  const firmware::Firmware& firmware() const { return firmware_; }

 private:
  ControlAnswer standardRequest(const ControlSetup& setup);
  ControlAnswer hidRequest(const ControlSetup& setup);
  ControlAnswer vendorRequest(const ControlSetup& setup, std::span<const std::uint8_t> sent);
  ControlAnswer descriptor(std::uint8_t type, std::uint8_t index) const;
  void queueReport(std::vector<std::uint8_t> report);

  firmware::Firmware firmware_;
  firmware::TouchSurface surface_;
  ReportStyle style_;
  TouchReports reports_;
  std::deque<std::vector<std::uint8_t>> waiting_;
  bool listened_ = false;
  std::uint8_t configuration_ = 0;
  std::uint8_t idleRate_ = 0;
  std::uint64_t droppedReports_ = 0;
  std::optional<std::uint32_t> packetsUntilUnplug_;
};

}  // namespace touchpanel::emulator

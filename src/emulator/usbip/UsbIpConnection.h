#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <vector>

#include "emulator/device/UsbTouchscreen.h"

namespace touchpanel::emulator {

inline constexpr std::size_t kUsbIpHeaderSize = 48;

/// The device's side of one USB/IP stream: bytes from the kernel in, bytes for the kernel out. Reads of input
/// reports are parked until there is a report. One per plugging-in.
class UsbIpConnection {
 public:
  explicit UsbIpConnection(UsbTouchscreen& device) : device_(device) {}

  /// Takes the next bytes of the stream, in pieces of any size. Returns false when they make no sense:
  /// nothing can be done with the stream any more.
  bool receive(std::span<const std::uint8_t> bytes);
  /// Answers parked reads with the reports that have come up since.
  void deliverReports();

  /// Bytes for the kernel that have not been sent yet; the sender removes what it has sent.
  std::vector<std::uint8_t>& outgoing() { return outgoing_; }

 private:
  /// A big-endian number of the header that is first in incoming_.
  std::uint32_t numberAt(std::size_t offset) const;
  void submit(std::span<const std::uint8_t> sent);
  void unlink(std::uint32_t victim);
  void answer(std::uint32_t command, std::uint32_t sequence, std::int32_t status, std::size_t length,
              std::span<const std::uint8_t> data = {});

  UsbTouchscreen& device_;
  std::vector<std::uint8_t> incoming_;
  std::vector<std::uint8_t> outgoing_;
  std::deque<std::uint32_t> parked_;
};

}  // namespace touchpanel::emulator

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <variant>
#include <vector>

namespace touchpanel::emulator {

/// Every message of the USB/IP stream begins with a header of this size; numbers in it are big-endian.
///
///     byte   0        4        8        12         16   20                                        48
///            +--------+--------+--------+----------+----+-----------------------------------------+
///     SUBMIT | 1      | seqnum | devid  | direction| ep | flags length start packets int. setup[8]|
///     UNLINK | 2      | seqnum | devid  | direction| ep | victim's seqnum, zeros                  |
///     answer | 3 or 4 | seqnum | 0      | 0        | 0  | status, length, zeros                   |
///            +--------+--------+--------+----------+----+-----------------------------------------+
///
/// A SUBMIT towards the device is followed by `length` bytes, an answer to one from the device likewise.
inline constexpr std::size_t kUsbIpHeaderSize = 48;

/// Statuses of an answer: negated error numbers of the kernel.
inline constexpr std::int32_t kUsbIpDone = 0;
inline constexpr std::int32_t kUsbIpStalled = -32;    // EPIPE
inline constexpr std::int32_t kUsbIpNoAnswer = -71;   // EPROTO: nothing on the wire answers
inline constexpr std::int32_t kUsbIpUnlinked = -104;  // ECONNRESET

/// A transfer that the kernel asks for.
struct UsbIpSubmit {
  std::uint32_t sequence = 0;
  bool fromDevice = false;
  std::uint32_t endpoint = 0;
  std::uint32_t length = 0;             ///< bytes that follow (to the device) or are wanted at most (from it)
  std::array<std::uint8_t, 8> setup{};  ///< of a control transfer, as it goes over the bus
  bool operator==(const UsbIpSubmit&) const = default;
};

/// The kernel gives a transfer up.
struct UsbIpUnlink {
  std::uint32_t sequence = 0;
  std::uint32_t victim = 0;  ///< the sequence number of the transfer
  bool operator==(const UsbIpUnlink&) const = default;
};

using UsbIpRequest = std::variant<UsbIpSubmit, UsbIpUnlink>;

/// Nothing for a command that is none of the two.
std::optional<UsbIpRequest> decodeUsbIp(std::span<const std::uint8_t, kUsbIpHeaderSize> header);

/// Appends the answer to a transfer from the device, `data` included.
void appendAnswer(std::vector<std::uint8_t>& stream, std::uint32_t sequence, std::int32_t status,
                  std::span<const std::uint8_t> data);
/// Appends the answer to a transfer to the device, which took `taken` bytes.
void appendAnswer(std::vector<std::uint8_t>& stream, std::uint32_t sequence, std::int32_t status,
                  std::uint32_t taken);
void appendUnlinkAnswer(std::vector<std::uint8_t>& stream, std::uint32_t sequence, std::int32_t status);

}  // namespace touchpanel::emulator

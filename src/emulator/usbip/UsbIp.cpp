#include "emulator/usbip/UsbIp.h"

#include <algorithm>

namespace touchpanel::emulator {
namespace {

constexpr std::uint32_t kSubmit = 1;
constexpr std::uint32_t kUnlink = 2;
constexpr std::uint32_t kSubmitAnswer = 3;
constexpr std::uint32_t kUnlinkAnswer = 4;

constexpr std::size_t kCommandAt = 0;
constexpr std::size_t kSequenceAt = 4;
constexpr std::size_t kDirectionAt = 12;
constexpr std::size_t kEndpointAt = 16;
constexpr std::size_t kVictimAt = 20;
constexpr std::size_t kLengthAt = 24;
constexpr std::size_t kSetupAt = 40;

std::uint32_t numberAt(std::span<const std::uint8_t, kUsbIpHeaderSize> header, std::size_t offset) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 4; ++i) number = number << 8 | header[offset + i];
  return number;
}

void append(std::vector<std::uint8_t>& stream, std::uint32_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) stream.push_back(static_cast<std::uint8_t>(number >> shift));
}

void appendHeader(std::vector<std::uint8_t>& stream, std::uint32_t answer, std::uint32_t sequence,
                  std::int32_t status, std::uint32_t length) {
  const std::size_t end = stream.size() + kUsbIpHeaderSize;
  append(stream, answer);
  append(stream, sequence);
  for (int unused = 0; unused < 3; ++unused) append(stream, 0);  // devid, direction, endpoint
  append(stream, static_cast<std::uint32_t>(status));
  append(stream, length);
  stream.resize(end);
}

}  // namespace

std::optional<UsbIpRequest> decodeUsbIp(std::span<const std::uint8_t, kUsbIpHeaderSize> header) {
  const std::uint32_t sequence = numberAt(header, kSequenceAt);
  switch (numberAt(header, kCommandAt)) {
    case kSubmit: {
      UsbIpSubmit submit{.sequence = sequence,
                         .fromDevice = numberAt(header, kDirectionAt) != 0,
                         .endpoint = numberAt(header, kEndpointAt),
                         .length = numberAt(header, kLengthAt)};
      std::copy_n(header.begin() + kSetupAt, submit.setup.size(), submit.setup.begin());
      return submit;
    }
    case kUnlink:
      return UsbIpUnlink{.sequence = sequence, .victim = numberAt(header, kVictimAt)};
    default:
      return std::nullopt;
  }
}

void appendAnswer(std::vector<std::uint8_t>& stream, std::uint32_t sequence, std::int32_t status,
                  std::span<const std::uint8_t> data) {
  appendHeader(stream, kSubmitAnswer, sequence, status, static_cast<std::uint32_t>(data.size()));
  stream.insert(stream.end(), data.begin(), data.end());
}

void appendAnswer(std::vector<std::uint8_t>& stream, std::uint32_t sequence, std::int32_t status,
                  std::uint32_t taken) {
  appendHeader(stream, kSubmitAnswer, sequence, status, taken);
}

void appendUnlinkAnswer(std::vector<std::uint8_t>& stream, std::uint32_t sequence, std::int32_t status) {
  appendHeader(stream, kUnlinkAnswer, sequence, status, 0);
}

}  // namespace touchpanel::emulator

#include "protocol/ReplyText.h"

#include <cstdio>

namespace touchpanel {
namespace {

// Length bytes of the two version replies: one more than the payload they carry.
constexpr std::uint8_t kVersionOnly = 3;
constexpr std::uint8_t kVersionAndBuild = 5;

int byteAt(const PacketBuffer& reply, std::size_t payloadIndex) { return reply[kPayloadAt + payloadIndex]; }

char letterAt(const PacketBuffer& reply, std::size_t payloadIndex) {
  return static_cast<char>(reply[kPayloadAt + payloadIndex]);
}

std::int32_t signedAt(const PacketBuffer& reply, std::size_t payloadIndex) {
  std::uint32_t value = 0;
  for (std::size_t byte = 4; byte-- > 0;) value = (value << 8) | reply[kPayloadAt + payloadIndex + byte];
  return static_cast<std::int32_t>(value);
}

}  // namespace

void formatFirmwareVersion(const PacketBuffer& reply, char (&text)[20]) {
  const int minor = byteAt(reply, 0);
  const int major = byteAt(reply, 1);
  if (reply[kLengthAt] == kVersionOnly) std::snprintf(text, sizeof text, "%d.%d", major, minor);
  if (reply[kLengthAt] != kVersionAndBuild) return;
  const int build = byteAt(reply, 2) | byteAt(reply, 3) << 8;
  std::snprintf(text, sizeof text, "%d.%d.%04d", major, minor, build);
}

void formatBarCode(const PacketBuffer& reply, char (&text)[40]) {
  // Fields 9, 10 and those after the serial number are not part of the text.
  std::snprintf(text, sizeof text, "%c%.2d%c%.2d%c-%c%.1d%c-%.2d-%.2d%.2d-%.7d", letterAt(reply, 0),
                byteAt(reply, 1), letterAt(reply, 2), byteAt(reply, 3), letterAt(reply, 4),
                letterAt(reply, 5), byteAt(reply, 6), letterAt(reply, 7), byteAt(reply, 8), byteAt(reply, 11),
                byteAt(reply, 12), signedAt(reply, 13));
}

}  // namespace touchpanel

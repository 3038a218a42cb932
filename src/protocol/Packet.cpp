#include "protocol/Packet.h"

#include <cstring>
#include <numeric>

#include "protocol/DeviceContext.h"

namespace touchpanel {

std::uint32_t buildPkg(std::uint8_t kind, std::uint8_t command, std::uint8_t subCode, std::int32_t length,
                       const std::uint8_t* payload, std::uint8_t* out) {
  constexpr auto kLargest = static_cast<std::int32_t>(kBlockSize);
  constexpr auto kSmallest = 1 - static_cast<std::int32_t>(kPacketOverhead);
  if (length > kLargest || length < kSmallest) return 0;

  PacketBuffer scratch{};
  scratch[0] = kLeadByte;
  scratch[kKindAt] = kind;
  scratch[kCommandAt] = command;
  scratch[kLengthAt] = static_cast<std::uint8_t>(length + 1);
  scratch[kSubCodeAt] = subCode;
  if (length > 0) std::memcpy(&scratch[kPayloadAt], payload, static_cast<std::size_t>(length));

  const auto size = static_cast<std::uint32_t>(length + static_cast<std::int32_t>(kPacketOverhead));
  const auto checksumAt = scratch.begin() + (size - 1);
  *checksumAt = static_cast<std::uint8_t>(std::accumulate(scratch.begin(), checksumAt, +kChecksumSeed));
  std::memcpy(out, scratch.data(), size);
  return size;
}

}  // namespace touchpanel

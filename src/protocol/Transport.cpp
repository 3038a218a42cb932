#include "protocol/Transport.h"

namespace touchpanel {
namespace {

constexpr int kAttempts = 50;

bool answers(const PacketBuffer& reply, const PacketBuffer& request, std::uint8_t expectedReply) {
  return reply[kKindAt] == expectedReply && reply[kCommandAt] == request[kCommandAt];
}

}  // namespace

int hostToDevice(UsbDeviceInterface& device, std::uint8_t requestType, std::uint8_t* buffer,
                 std::uint16_t length) {
  DeviceRequest request;
  request.bmRequestType = requestType;
  request.wLength = length;
  request.pData = buffer;
  return device.deviceRequest(request) == kSuccess ? 1 : 0;
}

int sendCMD(UsbDeviceInterface& device, PacketBuffer& request, PacketBuffer& reply,
            std::uint16_t requestLength, std::uint8_t expectedReply, std::chrono::milliseconds delay,
            Clock& clock) {
  // Cleared once, not between attempts: a read that fails leaves what the one before it brought.
  PacketBuffer received{};
  int attempt = 0;
  do {
    ++attempt;
    hostToDevice(device, kVendorRequestOut, request.data(), requestLength);
    clock.sleep(delay);
    hostToDevice(device, kVendorRequestIn, received.data(), kPacketSize);
  } while (!answers(received, request, expectedReply) && attempt < kAttempts);

  // A match on the last attempt comes too late to count.
  if (attempt == kAttempts) return 0;
  reply = received;
  return 1;
}

}  // namespace touchpanel

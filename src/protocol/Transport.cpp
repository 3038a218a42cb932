#include "protocol/Transport.h"

namespace touchpanel {
namespace {

constexpr int kAttempts = 50;

bool answers(const PacketBuffer& reply, const PacketBuffer& request, std::uint8_t expectedReply) {
  return reply[kKindAt] == expectedReply && reply[kCommandAt] == request[kCommandAt];
}

Status transfer(UsbDeviceInterface& device, std::uint8_t requestType, std::uint8_t* buffer,
                std::uint16_t length) {
  DeviceRequest request;
  request.bmRequestType = requestType;
  request.wLength = length;
  request.pData = buffer;
  return device.deviceRequest(request);
}

}  // namespace

int hostToDevice(UsbDeviceInterface& device, std::uint8_t requestType, std::uint8_t* buffer,
                 std::uint16_t length) {
  return transfer(device, requestType, buffer, length) == kSuccess ? 1 : 0;
}

int sendCMD(UsbDeviceInterface& device, PacketBuffer& request, PacketBuffer& reply,
            std::uint16_t requestLength, std::uint8_t expectedReply, std::chrono::milliseconds delay,
            Clock& clock, Status* lastTransfer) {
  // Cleared once, not between attempts: a read that fails leaves what the one before it brought.
  PacketBuffer received{};
  Status status = kSuccess;
  int attempt = 0;
  do {
    ++attempt;
    status = transfer(device, kVendorRequestOut, request.data(), requestLength);
    if (status == kErrorNoDevice) break;
    clock.sleep(delay);
    const Status in = transfer(device, kVendorRequestIn, received.data(), kPacketSize);
    if (in != kSuccess) status = in;
  } while (status != kErrorNoDevice && !answers(received, request, expectedReply) && attempt < kAttempts);
  if (lastTransfer != nullptr) *lastTransfer = status;

  // A match on the last attempt comes too late to count.
  if (status == kErrorNoDevice || attempt == kAttempts) return 0;
  reply = received;
  return 1;
}

}  // namespace touchpanel

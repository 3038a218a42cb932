#pragma once

#include <chrono>
#include <cstdint>

#include "platform/Clock.h"
#include "platform/Usb.h"
#include "protocol/Packet.h"

namespace touchpanel {

// bmRequestType: vendor type, device recipient, and the direction.
inline constexpr std::uint8_t kVendorRequestOut = 0x40;
inline constexpr std::uint8_t kVendorRequestIn = 0xC0;

/// One vendor control transfer of `length` bytes on the default endpoint of a device that is open, in the
/// direction that `requestType` gives. Returns 1 when it completed, else 0. Blocks for as long as the device
/// interface lets a transfer take.
int hostToDevice(UsbDeviceInterface& device, std::uint8_t requestType, std::uint8_t* buffer,
                 std::uint16_t length);

/// Sends `request` (its first `requestLength` bytes), waits `delay`, and reads the reply, until a reply
/// carries `expectedReply` and echoes the command, at most 50 times. Returns 1 and fills the whole of
/// `reply`, header included, when that was so within 49 attempts; else returns 0 and leaves `reply` alone. An
/// attempt blocks for `delay` and two transfers. Transfer errors count as replies that do not match, save
/// kErrorNoDevice, after which nothing can reach the device any more: it ends the attempts with result 0.
/// `lastTransfer`, where given, gets the status of the last attempt: kSuccess when both of its transfers
/// completed, else that of the later one that failed.
int sendCMD(UsbDeviceInterface& device, PacketBuffer& request, PacketBuffer& reply,
            std::uint16_t requestLength, std::uint8_t expectedReply, std::chrono::milliseconds delay,
            Clock& clock, Status* lastTransfer = nullptr);

}  // namespace touchpanel

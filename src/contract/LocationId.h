#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace touchpanel {

/// Where a USB device is plugged in, as one number: `bus` is the bus number, `ports` the port numbers
/// (1..255) from the root hub down to the device. The control panel and the driver service both make it from
/// what the system tells them, so it pairs a device with its driver instance; it stays the same when the
/// device is plugged into the same socket again. Never 0.
///
///      31       24 23  20 19  16      3   0
///     +-----------+------+------+ .. +------+
///     |    bus    | port | port |    | port |     a port of 1..15 takes one digit; unused digits are 0
///     +-----------+------+------+ .. +------+
///
/// A port above 15 takes three digits: a 0, then the port in two. Two places never share a number as long as
/// their ports fit the six digits, which is so for every path of up to six hubs with 15 ports. A path that
/// does not fit, and a bus number 0, gives a hash of it with 0 in the place of the bus.
std::uint32_t locationIdFor(std::uint8_t bus, std::span<const std::uint8_t> ports);

/// The same from the name that the kernel gives a device or one of its interfaces, such as "3-1.4" or
/// "3-1.4:1.0", and "usb3" for a root hub. Nothing for any other text.
std::optional<std::uint32_t> locationIdFromKernelName(std::string_view name);

}  // namespace touchpanel

#pragma once

#include <cstdint>
#include <initializer_list>

#include "platform/Clock.h"
#include "platform/Diagnostics.h"
#include "platform/Usb.h"
#include "protocol/CommandTable.h"
#include "protocol/DeviceContext.h"

namespace touchpanel {

/// What every exchange needs beside the device.
struct ExchangePorts {
  Clock& clock;
  Diagnostics& diagnostics;
};

/// A set of what commands carry.
class ContentSet {
 public:
  constexpr ContentSet() = default;
  constexpr ContentSet(std::initializer_list<Content> contents) {
    for (const auto content : contents) add(content);
  }
  static constexpr ContentSet fromBits(std::uint32_t bits) {
    ContentSet set;
    set.bits_ = bits;
    return set;
  }
  constexpr std::uint32_t bits() const { return bits_; }
  constexpr void add(Content content) { bits_ |= bitOf(content); }
  constexpr bool contains(Content content) const { return (bits_ & bitOf(content)) != 0; }
  constexpr bool isEmpty() const { return bits_ == 0; }
  bool operator==(const ContentSet&) const = default;

 private:
  static constexpr std::uint32_t bitOf(Content content) { return 1U << static_cast<unsigned>(content); }
  std::uint32_t bits_ = 0;
};

/// How far an exchange came, beside its result.
struct ExchangeOutcome {
  Status opened = kSuccess;       ///< of a write's own open; a read is handed an open device
  bool entered = false;           ///< every unit went into command mode
  ContentSet done = {};           ///< blocks that were confirmed
  ContentSet failed = {};         ///< blocks that were tried and not confirmed
  bool left = false;              ///< every unit went back to work mode
  Status lastFailure = kSuccess;  ///< of the transfers of the last failed step; kSuccess: answered wrongly
  bool operator==(const ExchangeOutcome&) const = default;
};

/// Reads every block of `context` from an infrared touchscreen that the caller has opened and will close. A
/// block whose read fails keeps its content and prints one line. Returns 1 when the switches into command
/// mode and back to work mode both succeeded, else 0; `outcome`, where given, gets the details. Blocks for at
/// least 360 ms, and longer by every retry.
int getIrTucParam(UsbDeviceInterface& device, _DEVICT_CONTEXT& context, const ExchangePorts& ports,
                  ExchangeOutcome* outcome = nullptr);

/// Opens the touchscreen, writes `DeviceConfig` and both polynomials, and closes it. Returns 1 when both mode
/// switches succeeded, also when a block write failed; 0 otherwise, silently when the device cannot be
/// opened. Blocks for at least 170 ms.
int saveDataToIrDevice(UsbDeviceInterface& device, const _DEVICT_CONTEXT& context, const ExchangePorts& ports,
                       ExchangeOutcome* outcome = nullptr);

/// The same for an optical touchscreen and both of its units. Blocks for at least 590 ms.
int getOptTucParam(UsbDeviceInterface& device, _DEVICT_CONTEXT& context, const ExchangePorts& ports,
                   ExchangeOutcome* outcome = nullptr);

/// The same for an optical touchscreen and both of its units. Blocks for at least 190 ms.
int saveDataToOptDevice(UsbDeviceInterface& device, const _DEVICT_CONTEXT& context,
                        const ExchangePorts& ports, ExchangeOutcome* outcome = nullptr);

}  // namespace touchpanel

#pragma once

#include <chrono>
#include <span>
#include <string_view>

#include "protocol/CommandTable.h"
#include "protocol/Exchange.h"

namespace touchpanel {

/// One command of an exchange, how long the device gets for it, and what is printed when it fails.
struct ExchangeStep {
  Command command;
  std::chrono::milliseconds delay;
  std::string_view failure;
};

/// What an exchange with a family of touchscreens consists of, in order.
///
///     state        step            success            failure
///     entering     each of entry   next step          print, result 0, nothing more is sent
///     transferring each of blocks  next step          print, next step
///     leaving      each of exit    next; last: 1      print, result 0, nothing more is sent
struct ExchangeSequence {
  std::span<const ExchangeStep> entry;
  std::span<const ExchangeStep> blocks;
  std::span<const ExchangeStep> exit;
};

/// Runs a read sequence on an open device; each block that arrives goes into its place in `context`. What
/// happened goes into `outcome`, unless that is null.
int readBlocks(UsbDeviceInterface& device, _DEVICT_CONTEXT& context, const ExchangePorts& ports,
               const ExchangeSequence& sequence, ExchangeOutcome* outcome);

/// Opens the device, runs a write sequence with the blocks of `context`, and closes the device.
int writeBlocks(UsbDeviceInterface& device, const _DEVICT_CONTEXT& context, const ExchangePorts& ports,
                const ExchangeSequence& sequence, ExchangeOutcome* outcome);

}  // namespace touchpanel

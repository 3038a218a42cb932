#pragma once

#include <cstdint>
#include <string_view>

#include "platform/Status.h"
#include "protocol/Exchange.h"

namespace touchpanel {

/// What became of a device context that was to be written to where its device keeps it.
struct WriteOutcome {
  enum class Kind : std::uint8_t {
    Written,        ///< all of it
    NotWritten,     ///< nothing of it
    PartlyWritten,  ///< some of its blocks
    Unknown         ///< what the device holds now cannot be known
  };
  Kind kind = Kind::Written;
  /// Why, as a clause in English, marked for translation in the context "StatusLine"; empty when written. A
  /// literal.
  std::string_view reason = {};
  bool operator==(const WriteOutcome&) const = default;

  bool isWritten() const { return kind == Kind::Written; }
};

/// Of a write exchange that came as far as `exchange` says.
WriteOutcome outcomeOfExchange(const ExchangeOutcome& exchange);
/// Of a file whose atomic write returned `status`.
WriteOutcome outcomeOfFile(Status status);

// Why an operation failed, as a clause like WriteOutcome::reason.

std::string_view reasonOfDevice(Status status);  ///< opening a touchscreen or a transfer to it
std::string_view reasonOfDriver(Status status);  ///< a message to a driver instance
std::string_view reasonOfFile(Status status);    ///< writing a configuration file

}  // namespace touchpanel

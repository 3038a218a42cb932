#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <random>
#include <span>
#include <vector>

#include "contract/ProductId.h"
#include "protocol/CommandTable.h"
#include "protocol/DeviceContext.h"

namespace touchpanel::firmware {

/// A fault that a touchscreen can have. At most one at a time; each stays until cleared.
enum class Fault {
  None,
  IgnoresCommand,      ///< ignores the command code `argument`; the reply before it stays
  WrongEcho,           ///< answers with another command's code
  WrongReplyClass,     ///< answers with a reply code of another class
  LateReply,           ///< acts on and answers each command only the `argument`-th time it comes
  DiesAfterPackets,    ///< answers `argument` packets, then no more transfers succeed until re-plugged
  Stalls,              ///< refuses every vendor transfer
  GarbledReply,        ///< replies arrive with a few bits flipped, others each time; `argument` seeds them
  ShortReply,          ///< only `argument` bytes of each reply arrive
  OddVersionLength,    ///< the version reply has a length that no rule covers
  UnterminatedBarCode  ///< the bar code fills its reply without a terminator
};

struct FaultSetting {
  Fault fault = Fault::None;
  std::uint32_t argument = 0;
  bool operator==(const FaultSetting&) const = default;
};

/// What a touchscreen is and holds when it is new.
struct DeviceDescription {
  std::uint16_t productId = kProductInfrared0080;
  std::vector<std::uint8_t> version = {5, 2, 12, 0};  ///< 2 or 4 bytes: minor, major, build low, build high
  std::vector<std::uint8_t> barCode;  ///< infrared: text bytes, at most 33; optical: 20 field bytes
  _ScrProps screenProps{};
  _TUC_DEVICE_CONFIG deviceConfig{};
  _CALIB_PARAMS calibParams{};
};

/// Descriptions of the three kinds with plausible contents, for demos and tests. `serial` makes each one
/// distinct.
DeviceDescription exampleDevice(DeviceKind kind, std::uint32_t serial = 1);

enum class TransferResult { Done, Stalled, Gone };

/// The control-transfer side of a touchscreen's firmware: packets in, packets out, byte for byte. It keeps
/// the blocks that a panel writes, which live on as in a real device's flash memory. Knows no time and no
/// bus.
///
///     state         command                             reply                 next state
///     work mode     mode 1, to each of its units        empty                 command mode
///     work mode     any other                           the last one, stale   work mode
///     command mode  a read or write of its family       block, text or empty  command mode
///     command mode  mode 0, to any unit                 empty                 work mode
///     either        malformed, or of another family     the last one, stale   the same
///
/// A configuration-only device has no such commands and stalls every transfer.
class Firmware {
 public:
  explicit Firmware(DeviceDescription description);

  /// A vendor OUT transfer with one request packet of 6 to 64 bytes; anything malformed is ignored, as a
  /// device does.
  TransferResult receive(std::span<const std::uint8_t> packet);
  /// A vendor IN transfer: fills `reply` (up to 64 bytes) with the reply to the last command and sets
  /// `length`. Before the first command the reply is all zero; it can be fetched any number of times.
  TransferResult reply(std::span<std::uint8_t> reply, std::size_t& length);

  void setFault(FaultSetting setting);
  FaultSetting fault() const { return fault_; }
  /// A fresh power-up after having been unplugged: work mode, no pending reply, stored blocks kept.
  void powerCycle();

  const DeviceDescription& stored() const { return stored_; }  ///< what the device holds now
  bool inCommandMode(std::uint8_t unit = 0) const;
  /// Packets that arrived since it was made, malformed ones included.
  std::uint64_t packetsReceived() const { return packetsReceived_; }

 private:
  bool isAnsweredThisTime(std::span<const std::uint8_t> packet);
  bool isAccessible(const Command& command) const;
  void carryOut(const Command& command, std::span<const std::uint8_t> payload);
  void answer(const Command& command, std::span<const std::uint8_t> payload);
  std::vector<std::uint8_t> contentFor(const Command& command) const;

  DeviceDescription stored_;
  std::span<const Command> commands_;  ///< of its family; none for a configuration-only device
  FaultSetting fault_;
  PacketBuffer reply_{};
  std::array<bool, 2> commandMode_{};
  bool gone_ = false;
  std::uint64_t packetsReceived_ = 0;
  std::uint64_t packetsUntilDeath_ = 0;
  std::vector<std::uint8_t> repeatedPacket_;  ///< what a late device is being asked
  std::uint64_t repetitions_ = 0;
  std::minstd_rand flips_;
};

}  // namespace touchpanel::firmware

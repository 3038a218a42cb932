#include "firmware/Firmware.h"

#include <algorithm>
#include <cstring>
#include <numeric>

namespace touchpanel::firmware {
namespace {

constexpr int kFlippedBits = 3;
/// A version reply carries two or four bytes; three match neither format.
constexpr std::size_t kOddVersionSize = 3;
constexpr std::uint8_t kNeverTerminator = '#';

std::span<const Command> commandsOf(std::uint16_t productId) {
  switch (kindOf(productId)) {
    case DeviceKind::Infrared:
      return kInfraredCommands;
    case DeviceKind::Optical:
      return kOpticalCommands;
    default:
      return {};
  }
}

/// The number of units that are switched between the modes one by one.
std::size_t unitsOf(std::span<const Command> commands) {
  return static_cast<std::size_t>(std::count_if(
      commands.begin(), commands.end(), [](const Command& each) { return each.content == Content::Mode; }));
}

bool isWellFormed(std::span<const std::uint8_t> packet) {
  if (packet.size() < kPacketOverhead || packet.size() > kPacketSize) return false;
  if (packet[0] != kLeadByte || packet[kLengthAt] != packet.size() - kPacketOverhead + 1) return false;
  const auto sum = std::accumulate(packet.begin(), packet.end() - 1, +kChecksumSeed);
  return packet.back() == static_cast<std::uint8_t>(sum);
}

const Command* find(std::span<const Command> commands, std::span<const std::uint8_t> packet) {
  if (!isWellFormed(packet)) return nullptr;
  const auto found = std::find_if(commands.begin(), commands.end(), [&](const Command& each) {
    return each.kind == packet[kKindAt] && each.code == packet[kCommandAt] &&
           each.subCode == packet[kSubCodeAt] && each.requestPayload == packet.size() - kPacketOverhead;
  });
  return found == commands.end() ? nullptr : &*found;
}

std::uint8_t otherCode(std::uint8_t code) {
  return code == CMD_GET_VERSION ? CMD_GET_PROPS : CMD_GET_VERSION;
}
std::uint8_t otherReplyClass(std::uint8_t replyCode) {
  return replyCode == REPLY_OPT_SET ? REPLY_OPT_GET : REPLY_OPT_SET;
}

template <typename Block>
std::vector<std::uint8_t> bytesOf(const Block& block) {
  const auto image = imageOf(block);
  return {image.begin(), image.end()};
}

std::vector<std::uint8_t> fitted(std::vector<std::uint8_t> bytes, std::size_t size) {
  bytes.resize(size);
  return bytes;
}

}  // namespace

Firmware::Firmware(DeviceDescription description)
    : stored_(std::move(description)), commands_(commandsOf(stored_.productId)) {}

TransferResult Firmware::receive(std::span<const std::uint8_t> packet) {
  if (commands_.empty() || fault_.fault == Fault::Stalls) return TransferResult::Stalled;
  if (fault_.fault == Fault::DiesAfterPackets && packetsUntilDeath_ == 0) gone_ = true;
  if (gone_) return TransferResult::Gone;
  ++packetsReceived_;
  if (packetsUntilDeath_ > 0) --packetsUntilDeath_;

  const Command* command = find(commands_, packet);
  if (command == nullptr) return TransferResult::Done;
  if (fault_.fault == Fault::IgnoresCommand && fault_.argument == command->code) return TransferResult::Done;
  if (!isAnsweredThisTime(packet)) {
    // A device that is busy with a command has no reply.
    reply_ = {};
    return TransferResult::Done;
  }
  if (!isAccessible(*command)) return TransferResult::Done;
  carryOut(*command, packet.subspan(kPayloadAt, command->requestPayload));
  answer(*command, contentFor(*command));
  return TransferResult::Done;
}

TransferResult Firmware::reply(std::span<std::uint8_t> reply, std::size_t& length) {
  length = 0;
  if (commands_.empty() || fault_.fault == Fault::Stalls) return TransferResult::Stalled;
  if (gone_) return TransferResult::Gone;

  auto sent = reply_;
  if (fault_.fault == Fault::GarbledReply) {
    std::uniform_int_distribution<std::size_t> bits(0, 8 * sent.size() - 1);
    for (int i = 0; i < kFlippedBits; ++i) {
      const auto bit = bits(flips_);
      sent[bit / 8] ^= static_cast<std::uint8_t>(1U << (bit % 8));
    }
  }
  length = std::min(sent.size(), reply.size());
  if (fault_.fault == Fault::ShortReply) length = std::min<std::size_t>(length, fault_.argument);
  std::copy_n(sent.begin(), length, reply.begin());
  return TransferResult::Done;
}

void Firmware::setFault(FaultSetting setting) {
  fault_ = setting;
  packetsUntilDeath_ = setting.fault == Fault::DiesAfterPackets ? setting.argument : 0;
  flips_.seed(setting.argument);
  repeatedPacket_.clear();
  repetitions_ = 0;
}

void Firmware::powerCycle() {
  setFault(fault_);
  gone_ = false;
  reply_ = {};
  commandMode_ = {};
}

bool Firmware::inCommandMode(std::uint8_t unit) const {
  return unit < commandMode_.size() && commandMode_[unit];
}

bool Firmware::isAnsweredThisTime(std::span<const std::uint8_t> packet) {
  if (fault_.fault != Fault::LateReply) return true;
  if (!std::equal(packet.begin(), packet.end(), repeatedPacket_.begin(), repeatedPacket_.end())) {
    repeatedPacket_.assign(packet.begin(), packet.end());
    repetitions_ = 0;
  }
  if (++repetitions_ < fault_.argument) return false;
  repetitions_ = 0;
  return true;
}

bool Firmware::isAccessible(const Command& command) const {
  if (command.content == Content::Mode) return true;
  const auto units = std::span(commandMode_).first(unitsOf(commands_));
  return std::all_of(units.begin(), units.end(), [](bool on) { return on; });
}

void Firmware::carryOut(const Command& command, std::span<const std::uint8_t> payload) {
  if (command.kind != PKT_SET) return;
  switch (command.content) {
    case Content::Mode:
      commandMode_[command.subCode] = payload[0] == kModeCommand;
      return;
    case Content::DeviceConfig:
      return copyImage(payload, stored_.deviceConfig);
    case Content::CalibX:
      return copyImage(payload, stored_.calibParams.X);
    case Content::CalibY:
      return copyImage(payload, stored_.calibParams.Y);
    default:
      return;
  }
}

void Firmware::answer(const Command& command, std::span<const std::uint8_t> payload) {
  Command echoed = command;
  if (fault_.fault == Fault::WrongEcho) echoed.code = otherCode(command.code);
  if (fault_.fault == Fault::WrongReplyClass) echoed.replyCode = otherReplyClass(command.replyCode);
  reply_ = {};
  buildPkg(echoed.replyCode, echoed.code, echoed.subCode, static_cast<std::int32_t>(payload.size()),
           payload.data(), reply_.data());
}

std::vector<std::uint8_t> Firmware::contentFor(const Command& command) const {
  if (command.kind == PKT_SET) return {};
  const bool oddVersion = fault_.fault == Fault::OddVersionLength;
  const bool endlessBarCode = fault_.fault == Fault::UnterminatedBarCode;
  switch (command.content) {
    case Content::ScreenProps:
      return bytesOf(stored_.screenProps);
    case Content::DeviceConfig:
      return bytesOf(stored_.deviceConfig);
    case Content::CalibX:
      return bytesOf(stored_.calibParams.X);
    case Content::CalibY:
      return bytesOf(stored_.calibParams.Y);
    case Content::Version:
      return oddVersion ? fitted(stored_.version, kOddVersionSize) : stored_.version;
    case Content::BarCodeText:
      return endlessBarCode ? std::vector(kBlockSize, kNeverTerminator)
                            : fitted(stored_.barCode, kBarCodeTextSize);
    case Content::BarCodeFields:
      return endlessBarCode ? std::vector(kBlockSize, kNeverTerminator)
                            : fitted(stored_.barCode, kBarCodeFieldsSize);
    case Content::Mode:
      return {};
  }
  return {};
}

}  // namespace touchpanel::firmware

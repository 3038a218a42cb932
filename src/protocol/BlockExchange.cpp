#include "protocol/BlockExchange.h"

#include <algorithm>
#include <cstring>

#include "protocol/ReplyText.h"
#include "protocol/Transport.h"

namespace touchpanel {
namespace {

using Payload = std::array<std::uint8_t, kBlockSize>;

/// The one place where a step's buffers are made: cleared, on the stack, fresh for every step.
class Conversation {
 public:
  Conversation(UsbDeviceInterface& device, const ExchangePorts& ports) : device_(device), ports_(ports) {}

  /// Carries out one step and prints its failure.
  bool perform(const ExchangeStep& step, const Payload& payload, PacketBuffer& reply) {
    PacketBuffer packet{};
    const auto& command = step.command;
    const auto size = buildPkg(command.kind, command.code, command.subCode, command.requestPayload,
                               payload.data(), packet.data());
    const auto length = static_cast<std::uint16_t>(size);
    if (sendCMD(device_, packet, reply, length, command.replyCode, step.delay, ports_.clock) == 1)
      return true;
    ports_.diagnostics.line(step.failure);
    return false;
  }

  /// Switches unit after unit and stops at the first that does not follow.
  bool switchMode(std::span<const ExchangeStep> units, std::uint8_t mode) {
    const Payload payload{mode};
    return std::all_of(units.begin(), units.end(), [&](const ExchangeStep& unit) {
      PacketBuffer reply{};
      return perform(unit, payload, reply);
    });
  }

 private:
  UsbDeviceInterface& device_;
  const ExchangePorts& ports_;
};

template <typename Block>
void storeBlock(const PacketBuffer& reply, Block& block) {
  static_assert(sizeof(Block) == kBlockSize);
  std::memcpy(&block, &reply[kPayloadAt], kBlockSize);
}

template <typename Block>
Payload payloadOf(const Block& block) {
  static_assert(sizeof(Block) == kBlockSize);
  return imageOf(block);
}

void store(Content content, const PacketBuffer& reply, _DEVICT_CONTEXT& context) {
  switch (content) {
    case Content::ScreenProps:
      return storeBlock(reply, context.ScreenProps);
    case Content::DeviceConfig:
      return storeBlock(reply, context.DeviceConfig);
    case Content::CalibX:
      return storeBlock(reply, context.CalibParams.X);
    case Content::CalibY:
      return storeBlock(reply, context.CalibParams.Y);
    case Content::Version:
      return formatFirmwareVersion(reply, context.FirmwareVer);
    case Content::BarCodeText:
      std::memcpy(context.BarCode, &reply[kPayloadAt], kBarCodeTextSize);
      return;
    case Content::BarCodeFields:
      return formatBarCode(reply, context.BarCode);
    case Content::Mode:
      return;
  }
}

Payload payloadFor(Content content, const _DEVICT_CONTEXT& context) {
  switch (content) {
    case Content::DeviceConfig:
      return payloadOf(context.DeviceConfig);
    case Content::CalibX:
      return payloadOf(context.CalibParams.X);
    case Content::CalibY:
      return payloadOf(context.CalibParams.Y);
    default:
      return {};
  }
}

/// Enters command mode, has `transfer` handle each block, and goes back to work mode whatever became of them.
template <typename Transfer>
int runSequence(Conversation& conversation, const ExchangeSequence& sequence, const Transfer& transfer) {
  if (!conversation.switchMode(sequence.entry, kModeCommand)) return 0;
  for (const auto& step : sequence.blocks) transfer(step);
  return conversation.switchMode(sequence.exit, kModeWork) ? 1 : 0;
}

}  // namespace

int readBlocks(UsbDeviceInterface& device, _DEVICT_CONTEXT& context, const ExchangePorts& ports,
               const ExchangeSequence& sequence) {
  Conversation conversation(device, ports);
  return runSequence(conversation, sequence, [&](const ExchangeStep& step) {
    PacketBuffer reply{};
    if (conversation.perform(step, {}, reply)) store(step.command.content, reply, context);
  });
}

int writeBlocks(UsbDeviceInterface& device, const _DEVICT_CONTEXT& context, const ExchangePorts& ports,
                const ExchangeSequence& sequence) {
  if (device.open() != kSuccess) return 0;
  Conversation conversation(device, ports);
  const int result = runSequence(conversation, sequence, [&](const ExchangeStep& step) {
    PacketBuffer reply{};
    conversation.perform(step, payloadFor(step.command.content, context), reply);
  });
  device.close();
  return result;
}

}  // namespace touchpanel

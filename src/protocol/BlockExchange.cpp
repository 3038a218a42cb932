#include "protocol/BlockExchange.h"

#include <algorithm>
#include <cstring>

#include "protocol/ReplyText.h"
#include "protocol/Transport.h"

namespace touchpanel {
namespace {

using Payload = std::array<std::uint8_t, kBlockSize>;

/// Makes the buffers of every step anew: cleared, and on the stack.
class Conversation {
 public:
  Conversation(UsbDeviceInterface& device, const ExchangePorts& ports, ExchangeOutcome& outcome)
      : device_(device), ports_(ports), outcome_(outcome) {}

  /// Carries out one step, and prints and remembers its failure.
  bool perform(const ExchangeStep& step, const Payload& payload, PacketBuffer& reply) {
    PacketBuffer packet{};
    const auto& command = step.command;
    const auto size = buildPkg(command.kind, command.code, command.subCode, command.requestPayload,
                               payload.data(), packet.data());
    const auto length = static_cast<std::uint16_t>(size);
    Status status = kSuccess;
    if (sendCMD(device_, packet, reply, length, command.replyCode, step.delay, ports_.clock, &status) == 1)
      return true;
    outcome_.lastFailure = status;
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
  ExchangeOutcome& outcome_;
};

void store(Content content, const PacketBuffer& reply, _DEVICT_CONTEXT& context) {
  const auto payload = std::span(reply).subspan(kPayloadAt);
  switch (content) {
    case Content::ScreenProps:
      return copyImage(payload, context.ScreenProps);
    case Content::DeviceConfig:
      return copyImage(payload, context.DeviceConfig);
    case Content::CalibX:
      return copyImage(payload, context.CalibParams.X);
    case Content::CalibY:
      return copyImage(payload, context.CalibParams.Y);
    case Content::Version:
      return formatFirmwareVersion(reply, context.FirmwareVer);
    case Content::BarCodeText:
      std::memcpy(context.BarCode, payload.data(), kBarCodeTextSize);
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
      return imageOf(context.DeviceConfig);
    case Content::CalibX:
      return imageOf(context.CalibParams.X);
    case Content::CalibY:
      return imageOf(context.CalibParams.Y);
    default:
      return {};
  }
}

/// Enters command mode, calls `transfer` for each block, and leaves command mode even if blocks failed.
template <typename Transfer>
int runSequence(Conversation& conversation, const ExchangeSequence& sequence, ExchangeOutcome& outcome,
                const Transfer& transfer) {
  outcome.entered = conversation.switchMode(sequence.entry, kModeCommand);
  if (!outcome.entered) return 0;
  for (const auto& step : sequence.blocks)
    (transfer(step) ? outcome.done : outcome.failed).add(step.command.content);
  outcome.left = conversation.switchMode(sequence.exit, kModeWork);
  return outcome.left ? 1 : 0;
}

}  // namespace

int readBlocks(UsbDeviceInterface& device, _DEVICT_CONTEXT& context, const ExchangePorts& ports,
               const ExchangeSequence& sequence, ExchangeOutcome* outcome) {
  ExchangeOutcome unused;
  auto& reached = outcome != nullptr ? *outcome : unused;
  reached = ExchangeOutcome();
  Conversation conversation(device, ports, reached);
  return runSequence(conversation, sequence, reached, [&](const ExchangeStep& step) {
    PacketBuffer reply{};
    if (!conversation.perform(step, {}, reply)) return false;
    store(step.command.content, reply, context);
    return true;
  });
}

int writeBlocks(UsbDeviceInterface& device, const _DEVICT_CONTEXT& context, const ExchangePorts& ports,
                const ExchangeSequence& sequence, ExchangeOutcome* outcome) {
  ExchangeOutcome unused;
  auto& reached = outcome != nullptr ? *outcome : unused;
  reached = ExchangeOutcome();
  reached.opened = device.open();
  if (reached.opened != kSuccess) return 0;
  Conversation conversation(device, ports, reached);
  const int result = runSequence(conversation, sequence, reached, [&](const ExchangeStep& step) {
    PacketBuffer reply{};
    return conversation.perform(step, payloadFor(step.command.content, context), reply);
  });
  device.close();
  return result;
}

}  // namespace touchpanel

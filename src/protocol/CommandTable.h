#pragma once

#include <array>
#include <cstdint>

#include "protocol/DeviceContext.h"
#include "protocol/Packet.h"

namespace touchpanel {

/// What a command carries, in its request or in its reply.
enum class Content { Mode, ScreenProps, DeviceConfig, CalibX, CalibY, Version, BarCodeText, BarCodeFields };

/// One command of a family of touchscreens.
struct Command {
  Content content = Content::Mode;
  std::uint8_t kind = 0;
  std::uint8_t code = 0;
  std::uint8_t subCode = 0;
  std::uint8_t requestPayload = 0;  ///< bytes
  std::uint8_t replyCode = 0;
  bool operator==(const Command&) const = default;
};

/// Bytes of a bar code that arrives as text; it need not be terminated.
inline constexpr std::size_t kBarCodeTextSize = 33;
/// Bytes of a bar code that arrives as fields to be formatted.
inline constexpr std::size_t kBarCodeFieldsSize = 20;
inline constexpr auto kBlockPayload = static_cast<std::uint8_t>(kBlockSize);

// clang-format off
inline constexpr std::array kInfraredCommands = {
    //      content                 kind     code                   sub payload        reply
    Command{Content::Mode,          PKT_SET, CMD_SET_MODE,          0,  1,             REPLY_IR},
    Command{Content::ScreenProps,   PKT_GET, CMD_GET_PROPS,         0,  0,             REPLY_IR},
    Command{Content::DeviceConfig,  PKT_GET, CMD_GET_PROPS,         1,  0,             REPLY_IR},
    Command{Content::DeviceConfig,  PKT_SET, CMD_SET_DEVICE_CONFIG, 1,  kBlockPayload, REPLY_IR},
    Command{Content::CalibX,        PKT_GET, CMD_IR_GET_CALIB_X,    0,  0,             REPLY_IR},
    Command{Content::CalibX,        PKT_SET, CMD_IR_SET_CALIB_X,    0,  kBlockPayload, REPLY_IR},
    Command{Content::CalibY,        PKT_GET, CMD_IR_GET_CALIB_Y,    0,  0,             REPLY_IR},
    Command{Content::CalibY,        PKT_SET, CMD_IR_SET_CALIB_Y,    0,  kBlockPayload, REPLY_IR},
    Command{Content::Version,       PKT_GET, CMD_GET_VERSION,       0,  0,             REPLY_IR},
    Command{Content::BarCodeText,   PKT_GET, CMD_IR_GET_BARCODE,    0,  0,             REPLY_IR},
};

inline constexpr std::array kOpticalCommands = {
    //      content                 kind     code                   sub payload        reply
    Command{Content::Mode,          PKT_SET, CMD_SET_MODE,          0,  1,             REPLY_OPT_SET},
    Command{Content::Mode,          PKT_SET, CMD_SET_MODE,          1,  1,             REPLY_OPT_SET},
    Command{Content::ScreenProps,   PKT_GET, CMD_GET_PROPS,         0,  0,             REPLY_OPT_GET},
    Command{Content::DeviceConfig,  PKT_GET, CMD_GET_PROPS,         1,  0,             REPLY_OPT_GET},
    Command{Content::DeviceConfig,  PKT_SET, CMD_SET_DEVICE_CONFIG, 1,  kBlockPayload, REPLY_OPT_SET},
    Command{Content::CalibX,        PKT_GET, CMD_OPT_GET_CALIB,     0,  0,             REPLY_OPT_GET},
    Command{Content::CalibX,        PKT_SET, CMD_OPT_SET_CALIB,     0,  kBlockPayload, REPLY_OPT_SET},
    Command{Content::CalibY,        PKT_GET, CMD_OPT_GET_CALIB,     1,  0,             REPLY_OPT_GET},
    Command{Content::CalibY,        PKT_SET, CMD_OPT_SET_CALIB,     1,  kBlockPayload, REPLY_OPT_SET},
    Command{Content::Version,       PKT_GET, CMD_GET_VERSION,       0,  0,             REPLY_OPT_GET},
    Command{Content::BarCodeFields, PKT_GET, CMD_OPT_GET_BARCODE,   0,  0,             REPLY_OPT_GET},
};
// clang-format on

/// Finds the command of `table` that carries `content`; at compile time only, where one that does not exist
/// is an error.
template <std::size_t Size>
consteval Command commandFor(const std::array<Command, Size>& table, std::uint8_t kind, Content content,
                             std::uint8_t unit = 0) {
  for (const auto& command : table) {
    if (command.kind != kind || command.content != content) continue;
    if (content != Content::Mode || command.subCode == unit) return command;
  }
  throw "no such command";
}

}  // namespace touchpanel

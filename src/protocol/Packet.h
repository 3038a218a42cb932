#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace touchpanel {

/// Bytes of a reply, and the most that a request takes.
inline constexpr std::size_t kPacketSize = 64;
using PacketBuffer = std::array<std::uint8_t, kPacketSize>;

// Where things stand in a packet; a reply has the same layout, with its reply code in the place of the kind.
//
//      0       1      2         3        4         5 .. 4+n    5+n
//    +------+------+---------+-------+----------+-----------+----------+
//    | 0xAA | kind | command |  n+1  | sub-code |  payload  | checksum |
//    +------+------+---------+-------+----------+-----------+----------+
inline constexpr std::size_t kKindAt = 1;
inline constexpr std::size_t kCommandAt = 2;
inline constexpr std::size_t kLengthAt = 3;
inline constexpr std::size_t kSubCodeAt = 4;
inline constexpr std::size_t kPayloadAt = 5;
/// Bytes of a packet beside its payload.
inline constexpr std::size_t kPacketOverhead = 6;

inline constexpr std::uint8_t kLeadByte = 0xAA;
inline constexpr std::uint8_t kChecksumSeed = 0x55;

// Packet kinds.
inline constexpr std::uint8_t PKT_SET = 1;  ///< write or mode command
inline constexpr std::uint8_t PKT_GET = 2;  ///< read command

// Reply codes.
inline constexpr std::uint8_t REPLY_IR = 0x10;
inline constexpr std::uint8_t REPLY_OPT_SET = 0x11;  ///< to mode and write commands
inline constexpr std::uint8_t REPLY_OPT_GET = 0x12;  ///< to read commands

// Command codes of both families.
inline constexpr std::uint8_t CMD_SET_MODE = 0x71;
inline constexpr std::uint8_t CMD_GET_PROPS = 0x30;
inline constexpr std::uint8_t CMD_SET_DEVICE_CONFIG = 0x31;
inline constexpr std::uint8_t CMD_GET_VERSION = 0x32;
// Infrared.
inline constexpr std::uint8_t CMD_IR_GET_CALIB_X = 0x2D;
inline constexpr std::uint8_t CMD_IR_SET_CALIB_X = 0x2E;
inline constexpr std::uint8_t CMD_IR_GET_CALIB_Y = 0x2B;
inline constexpr std::uint8_t CMD_IR_SET_CALIB_Y = 0x2C;
inline constexpr std::uint8_t CMD_IR_GET_BARCODE = 0x17;
// Optical.
inline constexpr std::uint8_t CMD_OPT_GET_CALIB = 0x14;
inline constexpr std::uint8_t CMD_OPT_SET_CALIB = 0x15;
inline constexpr std::uint8_t CMD_OPT_GET_BARCODE = 0x34;

// Payloads of CMD_SET_MODE.
inline constexpr std::uint8_t kModeCommand = 1;
inline constexpr std::uint8_t kModeWork = 0;

/// Assembles a request in `out` and returns its size, `length` + 6. `length` is that of the payload, 0..58;
/// a read command has none and may pass a null `payload`. `out` needs room for 64 bytes, of which only those
/// of the packet are written. A negative length copies no payload, but still decides the length byte and the
/// place of the checksum. A length that does not fit a packet writes nothing and returns 0.
std::uint32_t buildPkg(std::uint8_t kind, std::uint8_t command, std::uint8_t subCode, std::int32_t length,
                       const std::uint8_t* payload, std::uint8_t* out);

}  // namespace touchpanel

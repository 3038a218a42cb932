#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "protocol/DeviceContext.h"

namespace touchpanel::testing {

/// A record whose every byte tells its place: byte i is i * 37 + 11. What the golden block writes carry.
inline _DEVICT_CONTEXT patternContext() {
  std::array<std::uint8_t, kDeviceContextSize> image;
  for (std::size_t i = 0; i < image.size(); ++i) image[i] = static_cast<std::uint8_t>(i * 37 + 11);
  _DEVICT_CONTEXT context;
  copyImage(std::span<const std::uint8_t>(image), context);
  return context;
}

/// Every packet that either family is ever sent, worked out outside this program from the packet layout.
namespace golden {
inline constexpr char kEnterUnit0[] = "aa017102000174";
inline constexpr char kLeaveUnit0[] = "aa017102000073";
inline constexpr char kEnterUnit1[] = "aa017102010175";
inline constexpr char kLeaveUnit1[] = "aa017102010074";
inline constexpr char kGetScreenProps[] = "aa0230010032";
inline constexpr char kGetDeviceConfig[] = "aa0230010133";
inline constexpr char kGetVersion[] = "aa0232010034";
inline constexpr char kInfraredGetX[] = "aa022d01002f";
inline constexpr char kInfraredGetY[] = "aa022b01002d";
inline constexpr char kInfraredGetBarCode[] = "aa0217010019";
inline constexpr char kOpticalGetX[] = "aa0214010016";
inline constexpr char kOpticalGetY[] = "aa0214010117";
inline constexpr char kOpticalGetBarCode[] = "aa0234010036";
inline constexpr char kSetDeviceConfig[] =
    "aa01313b016d92b7dc01264b7095badf04294e7398bde2072c51769bc0e50a2f54799ec3e80d32577ca1c6eb10355a7fa4c9ee13"
    "385d82a7ccf1163b6085aa08";
inline constexpr char kInfraredSetX[] =
    "aa012e3b00cff4193e6388add2f71c41668bb0d5fa1f44698eb3d8fd22476c91b6db00254a6f94b9de03284d7297bce1062b5075"
    "9abfe4092e53789dc2e70c38";
inline constexpr char kInfraredSetY[] =
    "aa012c3b0031567ba0c5ea0f34597ea3c8ed12375c81a6cbf0153a5f84a9cef3183d6287acd1f61b40658aafd4f91e43688db2d7"
    "fc21466b90b5daff24496e6a";
inline constexpr char kOpticalSetX[] =
    "aa01153b00cff4193e6388add2f71c41668bb0d5fa1f44698eb3d8fd22476c91b6db00254a6f94b9de03284d7297bce1062b5075"
    "9abfe4092e53789dc2e70c1f";
inline constexpr char kOpticalSetY[] =
    "aa01153b0131567ba0c5ea0f34597ea3c8ed12375c81a6cbf0153a5f84a9cef3183d6287acd1f61b40658aafd4f91e43688db2d7"
    "fc21466b90b5daff24496e54";
}  // namespace golden

/// One step of an exchange as it shows from outside.
struct GoldenStep {
  enum class Role { Switch, Block };
  Role role;
  std::string packet;  ///< hexadecimal
  int delayMs;
  std::uint8_t replyCode;
  std::string failure;
  // What a good reply carries, and where it ends up in the record; nothing for writes and switches.
  std::string replyPayload = {};
  std::size_t recordOffset = 0;
  std::string recordBytes = {};
};

struct GoldenExchange {
  std::string name;
  bool writes;
  std::vector<GoldenStep> steps;
};

/// The four exchanges, in the order and with the replies of devices in good health.
inline std::vector<GoldenExchange> goldenExchanges() {
  using enum GoldenStep::Role;
  const auto block = [](char fill) { return std::string(kBlockSize, fill); };
  const std::string toDiagnosis = "To set the touchscreen to the diagnosis mode failed.";
  const std::string toCommand = "To set the touchscreen to the command mode failed.";
  const std::string toWork = "To set the touchscreen to the work mode failed.";
  const std::string version("\x05\x02\x0C\x00", 4);
  const std::string versionText("2.5.0012\0", 9);
  const std::string infraredBarCode = "IR-0123456789-ABCDEFGHIJKLMNOPQRS";
  const std::string opticalBarCode(
      "\x41\x01\x42\x02\x43\x44\x03\x45\x04\x00\x00\x05\x06\x39\x30\x00\x00\x7E\x7E\x7E", 20);
  const std::string opticalBarCodeText("A01B02C-D3E-04-0506-0012345\0", 28);
  return {
      {"InfraredRead",
       false,
       {{Switch, golden::kEnterUnit0, 30, 0x10, toDiagnosis},
        {Block, golden::kGetScreenProps, 50, 0x10, "To get screen props failed.", block('s'), 0, block('s')},
        {Block, golden::kInfraredGetX, 50, 0x10, "To get calib X parameter failed.", block('x'), 116,
         block('x')},
        {Block, golden::kInfraredGetY, 50, 0x10, "To get calib Y parameter failed.", block('y'), 174,
         block('y')},
        {Block, golden::kGetDeviceConfig, 50, 0x10, "To get device configuration failed.", block('c'), 58,
         block('c')},
        {Block, golden::kGetVersion, 50, 0x10, "To get firmware version failed.", version, 233, versionText},
        {Block, golden::kInfraredGetBarCode, 50, 0x10, "To get firmware version failed.", infraredBarCode,
         253, infraredBarCode},
        {Switch, golden::kLeaveUnit0, 30, 0x10, toWork}}},
      {"InfraredWrite",
       true,
       {{Switch, golden::kEnterUnit0, 10, 0x10, toCommand},
        {Block, golden::kSetDeviceConfig, 50, 0x10, "Set device config failed."},
        {Block, golden::kInfraredSetX, 50, 0x10, "Set X calib para failed."},
        {Block, golden::kInfraredSetY, 50, 0x10, "Set Y calib para failed."},
        {Switch, golden::kLeaveUnit0, 10, 0x10, "Set touchscreen to work mode failed."}}},
      {"OpticalRead",
       false,
       {{Switch, golden::kEnterUnit0, 500, 0x11, toDiagnosis},
        {Switch, golden::kEnterUnit1, 10, 0x11, toDiagnosis},
        {Block, golden::kGetScreenProps, 10, 0x12, "To get secondary cam props failed.", block('s'), 0,
         block('s')},
        {Block, golden::kGetDeviceConfig, 10, 0x12, "To get device configuration failed.", block('c'), 58,
         block('c')},
        {Block, golden::kOpticalGetX, 10, 0x12, "To get calib X parameter failed.", block('x'), 116,
         block('x')},
        {Block, golden::kOpticalGetY, 10, 0x12, "To get calib Y parameter failed.", block('y'), 174,
         block('y')},
        {Block, golden::kGetVersion, 10, 0x12, "To get firmware version failed.", version, 233, versionText},
        {Block, golden::kOpticalGetBarCode, 10, 0x12, "To get barcode version failed.", opticalBarCode, 253,
         opticalBarCodeText},
        {Switch, golden::kLeaveUnit0, 10, 0x11, toWork},
        {Switch, golden::kLeaveUnit1, 10, 0x11, toWork}}},
      {"OpticalWrite",
       true,
       {{Switch, golden::kEnterUnit0, 10, 0x11, toDiagnosis},
        {Switch, golden::kEnterUnit1, 10, 0x11, toDiagnosis},
        {Block, golden::kSetDeviceConfig, 50, 0x11, toDiagnosis},
        {Block, golden::kOpticalSetX, 50, 0x11, "To set X calib para failed."},
        {Block, golden::kOpticalSetY, 50, 0x11, "To set Y calib para failed."},
        {Switch, golden::kLeaveUnit0, 10, 0x11, toWork},
        {Switch, golden::kLeaveUnit1, 10, 0x11, toWork}}},
  };
}

}  // namespace touchpanel::testing

#include "protocol/BlockExchange.h"

namespace touchpanel {
namespace {

using namespace std::chrono_literals;

consteval Command get(Content content) { return commandFor(kOpticalCommands, PKT_GET, content); }
consteval Command set(Content content) { return commandFor(kOpticalCommands, PKT_SET, content); }
consteval Command modeOf(std::uint8_t unit) {
  return commandFor(kOpticalCommands, PKT_SET, Content::Mode, unit);
}

constexpr std::string_view kEntryFailure = "To set the touchscreen to the diagnosis mode failed.";
constexpr std::string_view kExitFailure = "To set the touchscreen to the work mode failed.";

constexpr ExchangeStep kReadEntry[] = {
    // The first switch of a read gets far longer than any other command.
    {modeOf(0), 500ms, kEntryFailure},
    {modeOf(1), 10ms, kEntryFailure}};
constexpr ExchangeStep kReads[] = {{get(Content::ScreenProps), 10ms, "To get secondary cam props failed."},
                                   {get(Content::DeviceConfig), 10ms, "To get device configuration failed."},
                                   {get(Content::CalibX), 10ms, "To get calib X parameter failed."},
                                   {get(Content::CalibY), 10ms, "To get calib Y parameter failed."},
                                   {get(Content::Version), 10ms, "To get firmware version failed."},
                                   {get(Content::BarCodeFields), 10ms, "To get barcode version failed."}};

constexpr ExchangeStep kWriteEntry[] = {{modeOf(0), 10ms, kEntryFailure}, {modeOf(1), 10ms, kEntryFailure}};
constexpr ExchangeStep kWrites[] = {
    // A failed configuration write has always been reported under the mode switch's text.
    {set(Content::DeviceConfig), 50ms, kEntryFailure},
    {set(Content::CalibX), 50ms, "To set X calib para failed."},
    {set(Content::CalibY), 50ms, "To set Y calib para failed."}};

constexpr ExchangeStep kExit[] = {{modeOf(0), 10ms, kExitFailure}, {modeOf(1), 10ms, kExitFailure}};

}  // namespace

int getOptTucParam(UsbDeviceInterface& device, _DEVICT_CONTEXT& context, const ExchangePorts& ports,
                   ExchangeOutcome* outcome) {
  return readBlocks(device, context, ports, {kReadEntry, kReads, kExit}, outcome);
}

int saveDataToOptDevice(UsbDeviceInterface& device, const _DEVICT_CONTEXT& context,
                        const ExchangePorts& ports, ExchangeOutcome* outcome) {
  return writeBlocks(device, context, ports, {kWriteEntry, kWrites, kExit}, outcome);
}

}  // namespace touchpanel

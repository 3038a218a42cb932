#include "protocol/BlockExchange.h"

namespace touchpanel {
namespace {

using namespace std::chrono_literals;

consteval Command get(Content content) { return commandFor(kInfraredCommands, PKT_GET, content); }
consteval Command set(Content content) { return commandFor(kInfraredCommands, PKT_SET, content); }

constexpr ExchangeStep kReadEntry[] = {
    {set(Content::Mode), 30ms, "To set the touchscreen to the diagnosis mode failed."}};
constexpr ExchangeStep kReads[] = {{get(Content::ScreenProps), 50ms, "To get screen props failed."},
                                   {get(Content::CalibX), 50ms, "To get calib X parameter failed."},
                                   {get(Content::CalibY), 50ms, "To get calib Y parameter failed."},
                                   {get(Content::DeviceConfig), 50ms, "To get device configuration failed."},
                                   {get(Content::Version), 50ms, "To get firmware version failed."},
                                   // The bar code has always been reported under the version's text.
                                   {get(Content::BarCodeText), 50ms, "To get firmware version failed."}};
constexpr ExchangeStep kReadExit[] = {
    {set(Content::Mode), 30ms, "To set the touchscreen to the work mode failed."}};

constexpr ExchangeStep kWriteEntry[] = {
    {set(Content::Mode), 10ms, "To set the touchscreen to the command mode failed."}};
constexpr ExchangeStep kWrites[] = {{set(Content::DeviceConfig), 50ms, "Set device config failed."},
                                    {set(Content::CalibX), 50ms, "Set X calib para failed."},
                                    {set(Content::CalibY), 50ms, "Set Y calib para failed."}};
constexpr ExchangeStep kWriteExit[] = {{set(Content::Mode), 10ms, "Set touchscreen to work mode failed."}};

}  // namespace

int getIrTucParam(UsbDeviceInterface& device, _DEVICT_CONTEXT& context, const ExchangePorts& ports,
                  ExchangeOutcome* outcome) {
  return readBlocks(device, context, ports, {kReadEntry, kReads, kReadExit}, outcome);
}

int saveDataToIrDevice(UsbDeviceInterface& device, const _DEVICT_CONTEXT& context, const ExchangePorts& ports,
                       ExchangeOutcome* outcome) {
  return writeBlocks(device, context, ports, {kWriteEntry, kWrites, kWriteExit}, outcome);
}

}  // namespace touchpanel

#include "discovery/WriteOutcome.h"

#include "platform/Translatable.h"

namespace touchpanel {

namespace {

using Kind = WriteOutcome::Kind;

struct FailedBlocks {
  ContentSet blocks;
  std::string_view reason;
};
constexpr FailedBlocks kFailedBlocks[] = {
    {{Content::DeviceConfig}, TRANSLATABLE_TEXT("StatusLine", "its configuration was not confirmed")},
    {{Content::CalibX}, TRANSLATABLE_TEXT("StatusLine", "the horizontal calibration was not confirmed")},
    {{Content::CalibY}, TRANSLATABLE_TEXT("StatusLine", "the vertical calibration was not confirmed")},
    {{Content::CalibX, Content::CalibY},
     TRANSLATABLE_TEXT("StatusLine", "horizontal and vertical calibration were not confirmed")},
    {{Content::DeviceConfig, Content::CalibX},
     TRANSLATABLE_TEXT("StatusLine", "configuration and horizontal calibration were not confirmed")},
    {{Content::DeviceConfig, Content::CalibY},
     TRANSLATABLE_TEXT("StatusLine", "configuration and vertical calibration were not confirmed")},
};

std::string_view reasonOfBlocks(ContentSet failed) {
  for (const auto& [blocks, reason] : kFailedBlocks)
    if (blocks == failed) return reason;
  return TRANSLATABLE_TEXT("StatusLine", "none of its blocks was confirmed");
}

}  // namespace

WriteOutcome outcomeOfExchange(const ExchangeOutcome& exchange) {
  const auto& [opened, entered, done, failed, left, lastFailure] = exchange;
  if (opened != kSuccess) return {Kind::NotWritten, reasonOfDevice(opened)};
  // Blocks are sent in command mode only.
  if (!entered) return {Kind::NotWritten, reasonOfDevice(lastFailure)};
  if (lastFailure == kErrorNoDevice)
    return {Kind::Unknown, TRANSLATABLE_TEXT("StatusLine", "it was unplugged during the write")};
  if (!left) return {Kind::Unknown, TRANSLATABLE_TEXT("StatusLine", "it did not go back to its work mode")};
  if (failed.isEmpty()) return {};
  return {done.isEmpty() ? Kind::NotWritten : Kind::PartlyWritten, reasonOfBlocks(failed)};
}

WriteOutcome outcomeOfFile(Status status) {
  if (status == kSuccess) return {};
  return {Kind::NotWritten, reasonOfFile(status)};
}

std::string_view reasonOfDevice(Status status) {
  switch (status) {
    case kErrorNoDevice:
      return TRANSLATABLE_TEXT("StatusLine", "it is not plugged in any more");
    case kErrorNotPermitted:
      return TRANSLATABLE_TEXT("StatusLine", "you are not permitted to use it");
    case kErrorExclusiveAccess:
      return TRANSLATABLE_TEXT("StatusLine", "another program is using it");
    default:
      return TRANSLATABLE_TEXT("StatusLine", "it does not answer");
  }
}

std::string_view reasonOfDriver(Status status) {
  switch (status) {
    case kErrorNoDevice:
      return TRANSLATABLE_TEXT("StatusLine", "the touch driver service has no such touchscreen any more");
    case kErrorNotPermitted:
      return TRANSLATABLE_TEXT("StatusLine", "you are not permitted to change settings of touchscreens");
    case kErrorExclusiveAccess:
      return TRANSLATABLE_TEXT("StatusLine", "another program is using it");
    case kErrorBadArgument:
      return TRANSLATABLE_TEXT("StatusLine", "the touch driver service refused it");
    case kErrorNoSpace:
      return TRANSLATABLE_TEXT("StatusLine", "the disk is full");
    case kErrorNotResponding:
    case kErrorTimeout:
      return TRANSLATABLE_TEXT("StatusLine", "the touch driver service does not answer");
    default:
      return TRANSLATABLE_TEXT("StatusLine", "the touch driver service failed");
  }
}

std::string_view reasonOfFile(Status status) {
  switch (status) {
    case kErrorNotPermitted:
      return TRANSLATABLE_TEXT("StatusLine", "you are not permitted to write the file");
    case kErrorNoSpace:
      return TRANSLATABLE_TEXT("StatusLine", "the disk is full");
    case kErrorNotFound:
      return TRANSLATABLE_TEXT("StatusLine", "the folder of the file is missing");
    case kErrorUnsupported:
      return TRANSLATABLE_TEXT("StatusLine", "there is a file of something else in its place");
    default:
      return TRANSLATABLE_TEXT("StatusLine", "the file cannot be written");
  }
}

}  // namespace touchpanel

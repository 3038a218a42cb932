#include "emulator/usbip/UsbIpConnection.h"

#include <algorithm>

namespace touchpanel::emulator {
namespace {

constexpr std::uint32_t kControlEndpoint = 0;
constexpr std::uint32_t kReportEndpoint = 1;
// No control transfer carries more than its 16-bit length; a longer one is a stream out of step.
constexpr std::uint32_t kLongestTransfer = 0xFFFF;

std::int32_t statusOf(ControlOutcome outcome) {
  switch (outcome) {
    case ControlOutcome::Done:
      return kUsbIpDone;
    case ControlOutcome::Stalled:
      return kUsbIpStalled;
    case ControlOutcome::NoAnswer:
      break;
  }
  return kUsbIpNoAnswer;
}

}  // namespace

bool UsbIpConnection::receive(std::span<const std::uint8_t> bytes) {
  incoming_.insert(incoming_.end(), bytes.begin(), bytes.end());
  while (incoming_.size() >= kUsbIpHeaderSize) {
    const std::size_t before = incoming_.size();
    if (!takeOne()) return false;
    if (incoming_.size() == before) break;  // its data has not all come yet
  }
  return true;
}

bool UsbIpConnection::takeOne() {
  const auto request =
      decodeUsbIp(std::span<const std::uint8_t, kUsbIpHeaderSize>(incoming_.data(), kUsbIpHeaderSize));
  if (!request) return false;
  std::size_t size = kUsbIpHeaderSize;
  if (const auto* transfer = std::get_if<UsbIpSubmit>(&*request)) {
    if (transfer->length > kLongestTransfer) return false;
    if (!transfer->fromDevice) size += transfer->length;
    if (incoming_.size() < size) return true;
    submit(*transfer, std::span(incoming_).subspan(kUsbIpHeaderSize, size - kUsbIpHeaderSize));
  } else {
    unlink(std::get<UsbIpUnlink>(*request));
  }
  incoming_.erase(incoming_.begin(), incoming_.begin() + static_cast<std::ptrdiff_t>(size));
  return true;
}

void UsbIpConnection::submit(const UsbIpSubmit& transfer, std::span<const std::uint8_t> sent) {
  if (transfer.endpoint == kReportEndpoint && transfer.fromDevice) {
    parked_.push_back(transfer.sequence);
    device_.setListened(true);
    deliverReports();
    return;
  }
  if (transfer.endpoint != kControlEndpoint) {
    appendAnswer(outgoing_, transfer.sequence, kUsbIpStalled, std::uint32_t{0});
    return;
  }
  const ControlAnswer answer = device_.control(ControlSetup::from(transfer.setup), sent);
  const std::int32_t status = statusOf(answer.outcome);
  if (transfer.fromDevice) {
    appendAnswer(outgoing_, transfer.sequence, status, answer.data);
  } else {
    appendAnswer(outgoing_, transfer.sequence, status, status == kUsbIpDone ? transfer.length : 0);
  }
}

void UsbIpConnection::unlink(const UsbIpUnlink& request) {
  const auto victim = std::find(parked_.begin(), parked_.end(), request.victim);
  if (victim == parked_.end()) {
    appendUnlinkAnswer(outgoing_, request.sequence, kUsbIpDone);
    return;
  }
  parked_.erase(victim);
  if (parked_.empty()) device_.setListened(false);
  appendUnlinkAnswer(outgoing_, request.sequence, kUsbIpUnlinked);
}

void UsbIpConnection::deliverReports() {
  while (!parked_.empty()) {
    const std::vector<std::uint8_t> report = device_.takeReport();
    if (report.empty()) return;
    appendAnswer(outgoing_, parked_.front(), kUsbIpDone, report);
    parked_.pop_front();
  }
}

}  // namespace touchpanel::emulator

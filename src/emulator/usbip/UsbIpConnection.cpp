#include "emulator/usbip/UsbIpConnection.h"

namespace touchpanel::emulator {
namespace {

// Every message of the USB/IP stream begins with a header of this size; numbers in it are big-endian.
//
//     byte   0        4        8        12         16   20                                        48
//            +--------+--------+--------+----------+----+-----------------------------------------+
//     SUBMIT | 1      | seqnum | devid  | direction| ep | flags length start packets int. setup[8]|
//     UNLINK | 2      | seqnum | devid  | direction| ep | victim's seqnum, zeros                  |
//     answer | 3 or 4 | seqnum | 0      | 0        | 0  | status, length, zeros                   |
//            +--------+--------+--------+----------+----+-----------------------------------------+
//
// A SUBMIT towards the device is followed by `length` bytes, an answer to one from the device likewise.
enum Command : std::uint32_t { Submit = 1, Unlink = 2, SubmitAnswer = 3, UnlinkAnswer = 4 };
constexpr std::size_t kCommandAt = 0, kSequenceAt = 4, kDirectionAt = 12, kEndpointAt = 16, kVictimAt = 20,
                      kLengthAt = 24, kSetupAt = 40, kSetupSize = 8;
constexpr std::uint32_t kToDevice = 0;
constexpr std::uint32_t kControlEndpoint = 0, kReportEndpoint = 1;
// No control transfer carries more than its 16-bit length; a longer one is a stream out of step.
constexpr std::uint32_t kLongestTransfer = 0xFFFF;

// Statuses of an answer: negated error numbers of the kernel.
constexpr std::int32_t kDone = 0;
constexpr std::int32_t kStalled = -32;    // EPIPE
constexpr std::int32_t kNoAnswer = -71;   // EPROTO: nothing on the wire answers
constexpr std::int32_t kUnlinked = -104;  // ECONNRESET

std::int32_t statusOf(firmware::TransferResult result) {
  if (result == firmware::TransferResult::Done) return kDone;
  return result == firmware::TransferResult::Stalled ? kStalled : kNoAnswer;
}

void append(std::vector<std::uint8_t>& stream, std::uint32_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) stream.push_back(static_cast<std::uint8_t>(number >> shift));
}

}  // namespace

std::uint32_t UsbIpConnection::numberAt(std::size_t offset) const {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 4; ++i) number = number << 8 | incoming_[offset + i];
  return number;
}

bool UsbIpConnection::receive(std::span<const std::uint8_t> bytes) {
  incoming_.insert(incoming_.end(), bytes.begin(), bytes.end());
  while (incoming_.size() >= kUsbIpHeaderSize) {
    const std::uint32_t command = numberAt(kCommandAt), length = numberAt(kLengthAt);
    std::size_t size = kUsbIpHeaderSize;
    if (command == Submit) {
      if (length > kLongestTransfer) return false;
      if (numberAt(kDirectionAt) == kToDevice) size += length;
      if (incoming_.size() < size) return true;  // its data has not all come yet
      submit(std::span(incoming_).subspan(kUsbIpHeaderSize, size - kUsbIpHeaderSize));
    } else if (command == Unlink) {
      unlink(numberAt(kVictimAt));
    } else {
      return false;
    }
    incoming_.erase(incoming_.begin(), incoming_.begin() + static_cast<std::ptrdiff_t>(size));
  }
  return true;
}

void UsbIpConnection::submit(std::span<const std::uint8_t> sent) {
  const std::uint32_t sequence = numberAt(kSequenceAt), endpoint = numberAt(kEndpointAt);
  const bool fromDevice = numberAt(kDirectionAt) != kToDevice;
  if (endpoint == kReportEndpoint && fromDevice) {
    parked_.push_back(sequence);
    device_.setListened(true);
    return deliverReports();
  }
  if (endpoint != kControlEndpoint) return answer(SubmitAnswer, sequence, kStalled, 0);
  const auto setup = std::span(incoming_).subspan<kSetupAt, kSetupSize>();
  const ControlAnswer result = device_.control(ControlSetup::from(setup), sent);
  const std::int32_t status = statusOf(result.outcome);
  const std::size_t taken = status == kDone ? sent.size() : 0;
  answer(SubmitAnswer, sequence, status, fromDevice ? result.data.size() : taken, result.data);
}

void UsbIpConnection::unlink(std::uint32_t victim) {
  const bool pending = std::erase(parked_, victim) > 0;
  if (pending && parked_.empty()) device_.setListened(false);
  answer(UnlinkAnswer, numberAt(kSequenceAt), pending ? kUnlinked : kDone, 0);
}

void UsbIpConnection::answer(std::uint32_t command, std::uint32_t sequence, std::int32_t status,
                             std::size_t length, std::span<const std::uint8_t> data) {
  const std::size_t end = outgoing_.size() + kUsbIpHeaderSize;
  append(outgoing_, command);
  append(outgoing_, sequence);
  for (int unused = 0; unused < 3; ++unused) append(outgoing_, 0);  // devid, direction, endpoint
  append(outgoing_, static_cast<std::uint32_t>(status));
  append(outgoing_, static_cast<std::uint32_t>(length));
  outgoing_.resize(end);
  outgoing_.insert(outgoing_.end(), data.begin(), data.end());
}

void UsbIpConnection::deliverReports() {
  while (!parked_.empty()) {
    const std::vector<std::uint8_t> report = device_.takeReport();
    if (report.empty()) return;
    answer(SubmitAnswer, parked_.front(), kDone, report.size(), report);
    parked_.pop_front();
  }
}

}  // namespace touchpanel::emulator

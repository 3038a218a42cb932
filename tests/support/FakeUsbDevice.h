#pragma once

#include <algorithm>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Usb.h"

namespace touchpanel::testing {

/// A USB device whose answers the test scripts, and which remembers every call in order. Without a script it
/// takes every packet and answers none.
class FakeUsbDevice : public UsbDeviceInterface {
 public:
  using Bytes = std::vector<std::uint8_t>;

  /// A request by its name: "open", "close", "out", "in", "configuration", "location", "vendor", "product" or
  /// "release".
  struct Call {
    std::string name;
    Bytes packet;  ///< what went out; empty for every other request
    bool operator==(const Call&) const = default;
  };

  // What the device is.
  std::uint8_t configuration = 1;
  std::uint32_t locationId = 0x14100000;
  std::uint16_t vendorId = 0x6666;
  std::uint16_t productId = 0x0080;
  UsbDeviceReference ownReference = 1;

  // How it behaves. A status other than success fails that operation.
  std::function<Status()> onOpen;             ///< asked at each open
  std::function<void(const Call&)> onCall;    ///< called before each operation is carried out
  std::function<Bytes(const Bytes&)> answer;  ///< the reply to a packet; empty: none, the last one stays
  std::function<void(UsbDeviceReference)> onRelease;
  Status outStatus = kSuccess;
  Status inStatus = kSuccess;
  Status getConfigurationStatus = kSuccess;
  Bytes pendingReply;  ///< what the next transfer in carries

  // What happened.
  std::vector<Call> calls;
  std::vector<DeviceRequest> requests;  ///< as they were handed in
  bool isOpen = false;
  bool isReleased = false;

  std::size_t count(std::string_view name) const {
    return static_cast<std::size_t>(std::ranges::count(calls, name, &Call::name));
  }
  std::vector<Bytes> packets() const {
    std::vector<Bytes> sent;
    for (const auto& call : calls)
      if (call.name == "out") sent.push_back(call.packet);
    return sent;
  }

  Status open() override {
    note({"open", {}});
    const Status status = onOpen ? onOpen() : kSuccess;
    if (status == kSuccess) isOpen = true;
    return status;
  }
  Status close() override {
    note({"close", {}});
    isOpen = false;
    return kSuccess;
  }
  Status deviceRequest(DeviceRequest& request) override {
    requests.push_back(request);
    const bool isIn = (request.bmRequestType & 0x80) != 0;
    const std::span data(request.pData, request.wLength);
    note(isIn ? Call{"in", {}} : Call{"out", Bytes(data.begin(), data.end())});
    if (const auto status = isIn ? inStatus : outStatus; status != kSuccess) return status;
    std::size_t moved = data.size();
    const auto status = isIn ? transferIn(data, moved) : transferOut(data);
    if (status == kSuccess) request.wLenDone = static_cast<std::uint32_t>(moved);
    return status;
  }
  Status getConfiguration(std::uint8_t& value) override {
    answerWith(configuration, value, "configuration");
    return getConfigurationStatus;
  }
  Status getLocationID(std::uint32_t& value) override { return answerWith(locationId, value, "location"); }
  Status getDeviceVendor(std::uint16_t& value) override { return answerWith(vendorId, value, "vendor"); }
  Status getDeviceProduct(std::uint16_t& value) override { return answerWith(productId, value, "product"); }
  void release() override {
    note({"release", {}});
    isReleased = true;
    if (const auto forget = std::exchange(onRelease, nullptr)) forget(ownReference);
  }
  UsbDeviceReference reference() const override { return ownReference; }

 private:
  virtual Status transferOut(std::span<std::uint8_t> packet) {
    if (!answer) return kSuccess;
    if (auto reply = answer({packet.begin(), packet.end()}); !reply.empty()) pendingReply = std::move(reply);
    return kSuccess;
  }
  virtual Status transferIn(std::span<std::uint8_t> reply, std::size_t& moved) {
    moved = std::min(reply.size(), pendingReply.size());
    std::copy_n(pendingReply.begin(), moved, reply.begin());
    return kSuccess;
  }
  template <typename Number>
  Status answerWith(Number held, Number& value, const char* name) {
    note({name, {}});
    value = held;
    return kSuccess;
  }
  void note(Call call) {
    if (onCall) onCall(call);
    calls.push_back(std::move(call));
  }
};

}  // namespace touchpanel::testing

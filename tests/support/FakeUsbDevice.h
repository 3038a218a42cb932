#pragma once

#include <algorithm>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "platform/Usb.h"

namespace touchpanel::testing {

/// A USB device whose answers the test scripts, and which remembers every call in order. Without a script it
/// takes every packet and answers none.
class FakeUsbDevice final : public UsbDeviceInterface {
 public:
  using Bytes = std::vector<std::uint8_t>;

  enum class Operation {
    Open,
    Close,
    Out,
    In,
    GetConfiguration,
    GetLocationID,
    GetDeviceVendor,
    GetDeviceProduct,
    Release
  };
  struct Call {
    Operation operation = Operation::Open;
    Bytes packet;  ///< what went out; empty for every other operation
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
  std::function<void(const Call&)> onCall;    ///< told of each call before it is carried out
  std::function<Bytes(const Bytes&)> answer;  ///< the reply to a packet; empty: none, the last one stays
  Status closeStatus = kSuccess;
  Status outStatus = kSuccess;
  Status inStatus = kSuccess;
  Status getConfigurationStatus = kSuccess;
  Bytes pendingReply;  ///< what the next transfer in carries

  // What happened.
  std::vector<Call> calls;
  std::vector<DeviceRequest> requests;  ///< as they were handed in
  bool isOpen = false;
  bool isReleased = false;

  std::size_t count(Operation operation) const {
    return static_cast<std::size_t>(std::count_if(
        calls.begin(), calls.end(), [&](const Call& call) { return call.operation == operation; }));
  }
  std::vector<Bytes> packets() const {
    std::vector<Bytes> sent;
    for (const auto& call : calls)
      if (call.operation == Operation::Out) sent.push_back(call.packet);
    return sent;
  }

  Status open() override {
    note({Operation::Open, {}});
    const Status status = onOpen ? onOpen() : kSuccess;
    if (status == kSuccess) isOpen = true;
    return status;
  }
  Status close() override {
    note({Operation::Close, {}});
    if (closeStatus == kSuccess) isOpen = false;
    return closeStatus;
  }
  Status deviceRequest(DeviceRequest& request) override {
    requests.push_back(request);
    return (request.bmRequestType & 0x80) != 0 ? transferIn(request) : transferOut(request);
  }
  Status getConfiguration(std::uint8_t& value) override {
    note({Operation::GetConfiguration, {}});
    value = configuration;
    return getConfigurationStatus;
  }
  Status getLocationID(std::uint32_t& value) override {
    note({Operation::GetLocationID, {}});
    value = locationId;
    return kSuccess;
  }
  Status getDeviceVendor(std::uint16_t& value) override {
    note({Operation::GetDeviceVendor, {}});
    value = vendorId;
    return kSuccess;
  }
  Status getDeviceProduct(std::uint16_t& value) override {
    note({Operation::GetDeviceProduct, {}});
    value = productId;
    return kSuccess;
  }
  void release() override {
    note({Operation::Release, {}});
    isReleased = true;
  }
  UsbDeviceReference reference() const override { return ownReference; }

 private:
  void note(Call call) {
    if (onCall) onCall(call);
    calls.push_back(std::move(call));
  }
  Status transferOut(DeviceRequest& request) {
    Bytes packet(request.pData, request.pData + request.wLength);
    note({Operation::Out, packet});
    if (outStatus != kSuccess) return outStatus;
    request.wLenDone = request.wLength;
    if (!answer) return kSuccess;
    if (auto reply = answer(packet); !reply.empty()) pendingReply = std::move(reply);
    return kSuccess;
  }
  Status transferIn(DeviceRequest& request) {
    note({Operation::In, {}});
    if (inStatus != kSuccess) return inStatus;
    const auto length = std::min<std::size_t>(request.wLength, pendingReply.size());
    if (length > 0) std::memcpy(request.pData, pendingReply.data(), length);
    request.wLenDone = static_cast<std::uint32_t>(length);
    return kSuccess;
  }
};

}  // namespace touchpanel::testing

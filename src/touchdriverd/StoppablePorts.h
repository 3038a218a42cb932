#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <utility>

#include "platform/Clock.h"
#include "platform/Usb.h"

namespace touchpanel::driver {

/// A clock for a worker thread, whose sleeps end at once when the worker is asked to stop.
class StoppableClock final : public Clock {
 public:
  explicit StoppableClock(std::stop_token stop) : stop_(std::move(stop)) {}
  void sleep(std::chrono::milliseconds duration) override {
    std::unique_lock lock(mutex_);
    wake_.wait_for(lock, stop_, duration, [] { return false; });
  }

 private:
  std::stop_token stop_;
  std::mutex mutex_;
  std::condition_variable_any wake_;
};

/// Another device interface, which is gone as soon as the worker that uses it is asked to stop, or has had it open for
/// so long: an exchange with many attempts left then runs out at once.
class StoppableDevice final : public UsbDeviceInterface {
 public:
  /// Less than the 24.5 s for which the control panel waits for a touchscreen that is open elsewhere. A sound
  /// touchscreen is read within a second.
  static constexpr std::chrono::seconds kLongestUse{12};

  /// `device` is not owned.
  StoppableDevice(UsbDeviceInterface& device, std::stop_token stop,
                  std::chrono::milliseconds longestUse = kLongestUse)
      : device_(device), stop_(std::move(stop)), longestUse_(longestUse) {}

  Status open() override {
    end_ = std::chrono::steady_clock::time_point::max();
    if (isOver()) return kErrorNoDevice;
    const auto status = device_.open();
    end_ = std::chrono::steady_clock::now() + longestUse_;
    return status;
  }
  Status close() override { return device_.close(); }
  Status deviceRequest(DeviceRequest& request) override {
    return isOver() ? kErrorNoDevice : device_.deviceRequest(request);
  }
  Status getConfiguration(std::uint8_t& configuration) override {
    return device_.getConfiguration(configuration);
  }
  Status getLocationID(std::uint32_t& locationId) override { return device_.getLocationID(locationId); }
  Status getDeviceVendor(std::uint16_t& vendorId) override { return device_.getDeviceVendor(vendorId); }
  Status getDeviceProduct(std::uint16_t& productId) override { return device_.getDeviceProduct(productId); }
  void release() override { device_.release(); }
  UsbDeviceReference reference() const override { return device_.reference(); }

 private:
  bool isOver() const { return stop_.stop_requested() || std::chrono::steady_clock::now() >= end_; }

  UsbDeviceInterface& device_;
  std::stop_token stop_;
  std::chrono::milliseconds longestUse_;
  std::chrono::steady_clock::time_point end_ = std::chrono::steady_clock::time_point::max();
};

}  // namespace touchpanel::driver

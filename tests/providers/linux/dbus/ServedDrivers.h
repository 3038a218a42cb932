#pragma once

#include <atomic>
#include <mutex>
#include <thread>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include "driver/service/DriverService.h"
#include "providers/linux/dbus/BusNames.h"
#include "support/FakeCalibrationReader.h"
#include "support/FakePointerDevices.h"
#include "support/FakePropertyListFiles.h"
#include "support/FakeTimers.h"
#include "support/FakeTouchInputs.h"
#include "support/RecordingDiagnostics.h"
#include "touchdriverd/BusService.h"

namespace touchpanel::testing {

/// The driver service on the session bus, with invented touchscreens, in a thread of its own. What the test
/// does to it goes through with(), which keeps the thread out meanwhile.
class ServedDrivers {
 public:
  ServedDrivers() : wake_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    connected_ = bus_.connect();
    thread_ = std::thread([this] { serve(); });
  }
  ~ServedDrivers() {
    stopping_ = true;
    wake();
    thread_.join();
    ::close(wake_);
  }
  ServedDrivers(const ServedDrivers&) = delete;
  ServedDrivers& operator=(const ServedDrivers&) = delete;

  template <typename Use>
  auto with(Use use) {
    const std::lock_guard lock(mutex_);
    wake();
    return use(service_);
  }
  /// From inside with() only.
  FakeTouchInputs& inputs() { return inputs_; }
  /// Answers nobody while `held` lives.
  std::unique_lock<std::mutex> hang() { return std::unique_lock(mutex_); }
  bool connectAgain() {
    const std::lock_guard lock(mutex_);
    wake();
    return connected_ = bus_.connect();
  }
  RecordingDiagnostics diagnostics;

 private:
  void wake() const { [[maybe_unused]] const auto written = ::eventfd_write(wake_, 1); }
  void serve() {
    while (!stopping_) {
      pollfd waited[2] = {{wake_, POLLIN, 0}, {-1, 0, 0}};
      int timeout = -1;
      {
        const std::lock_guard lock(mutex_);
        connected_ = connected_ && bus_.process();
        if (connected_) {
          const auto data = bus_.pollData();
          waited[1] = {data.fd, data.events, 0};
          timeout = data.getPollTimeout();
        }
      }
      ::poll(waited, 2, timeout);
      eventfd_t ignored = 0;
      ::eventfd_read(wake_, &ignored);
    }
  }

  FakeTouchInputs inputs_;
  FakePointerDevices pointers_;
  FakeTimers timers_;
  FakeCalibrationReader reader_;
  FakePropertyListFiles files_;
  driver::StateStore store_{files_, "/state", diagnostics};
  driver::DriverService service_{{inputs_, pointers_, timers_, reader_, diagnostics}, store_};
  driver::BusService bus_{service_, Bus::Session, bus_name::kDevelopmentService, diagnostics};
  bool connected_ = false;
  int wake_;
  std::mutex mutex_;
  std::atomic<bool> stopping_ = false;
  std::thread thread_;
};

}  // namespace touchpanel::testing

// The service as a process of its own, which is killed at random moments.
#include <atomic>
#include <csignal>
#include <random>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "contract/DriverProperties.h"
#include "providers/linux/dbus/BusNames.h"
#include "providers/linux/dbus/DBusRegistry.h"
#include "support/MockUsbBus.h"
#include "support/PrivateBus.h"
#include "support/RecordingDiagnostics.h"
#include "support/TemporaryDirectory.h"

namespace touchpanel::testing {
namespace {

class ServiceProcess {
 public:
  /// Returns once it serves.
  explicit ServiceProcess(const std::string& stateDirectory) {
    int told[2];
    if (::pipe2(told, O_CLOEXEC) != 0) return;
    process_ = ::fork();
    if (process_ == 0) {
      ::prctl(PR_SET_PDEATHSIG, SIGKILL);
      ::dup2(told[1], STDERR_FILENO);
      const auto state = "--state-directory=" + stateDirectory;
      ::execl(TOUCHDRIVERD, TOUCHDRIVERD, "--bus=session", "--verbose", state.c_str(), nullptr);
      ::_exit(127);
    }
    ::close(told[1]);
    std::string text;
    char byte = 0;
    while (text.find("Serving.") == std::string::npos && ::read(told[0], &byte, 1) == 1) text += byte;
    serves_ = text.find("Serving.") != std::string::npos;
    told_ = told[0];
  }
  ~ServiceProcess() {
    kill();
    ::waitpid(process_, nullptr, 0);
    ::close(told_);
  }
  ServiceProcess(const ServiceProcess&) = delete;
  ServiceProcess& operator=(const ServiceProcess&) = delete;
  void kill() const { ::kill(process_, SIGKILL); }
  bool serves() const { return serves_; }

 private:
  pid_t process_ = -1;
  int told_ = -1;
  bool serves_ = false;
};

TEST(KilledService, LosesNoSettingThatItHasAnswered) {
  firmware::Firmware touchscreen(firmware::exampleDevice(DeviceKind::ConfigurationOnly));
  MockUsbBus usb;
  usb.plugIn("1-2", touchscreen);
  PrivateBus bus;
  TemporaryDirectory state;
  RecordingDiagnostics diagnostics;
  DBusRegistry registry(diagnostics, Bus::Session, bus_name::kDevelopmentService);
  std::mt19937 random(20261121);
  std::int32_t answered = 5;  // the value that nobody has written yet
  std::int32_t sent = 5;
  for (int round = 0; round < 10; ++round) {
    SCOPED_TRACE(round);
    const ServiceProcess service(state.path());
    ASSERT_TRUE(service.serves());
    const auto found = registry.instancesOf(class_name::kTouchDriver);
    ASSERT_EQ(found.size(), 1U);
    const auto kept = registry.properties(found[0])
                          ->dictionary(property::kConfigration)
                          ->integer(configration_key::kRightClickArea);
    EXPECT_TRUE(kept == answered || kept == sent) << kept << " of " << answered << ".." << sent;
    answered = sent = kept;

    // Killed some way into one of the next writes: as it goes out, is saved, or is answered.
    const auto fatal = sent + std::uniform_int_distribution(1, 30)(random);
    const auto delay = std::uniform_int_distribution(0, 400)(random);
    std::atomic<std::int32_t> reached = 0;
    const std::jthread killer([&] {
      while (reached < fatal) std::this_thread::yield();
      for (int i = 0; i < delay; ++i) std::this_thread::yield();
      service.kill();
    });
    Status status = kSuccess;
    while (status == kSuccess && sent < 1000) {
      reached = ++sent;
      status = registry.setProperty(found[0], property::kConfigration,
                                    Dictionary{{configration_key::kRightClickArea, sent}});
      if (status == kSuccess) answered = sent;
    }
    reached = fatal;  // should the writes have ended for another reason
  }
}

}  // namespace
}  // namespace touchpanel::testing

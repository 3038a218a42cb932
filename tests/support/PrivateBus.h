#pragma once

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <utility>

#include <sys/types.h>
#include <unistd.h>

#include "support/TemporaryDirectory.h"

namespace touchpanel::testing {

/// A dbus-daemon of the test's own, which is this process's session bus while it runs. GLib's GTestDBus does
/// not wait until the daemon has ended, so a call after stop() could still be answered.
class PrivateBus {
 public:
  PrivateBus() { start(); }
  ~PrivateBus() { stop(); }
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;

  /// Also after stop(): another daemon at the same address. Returns once it listens.
  void start() {
    const auto address = "unix:path=" + directory_.file("socket");
    ::unlink(directory_.file("socket").c_str());
    // Not even a test that is killed leaves it behind.
    const auto command =
        "exec setpriv --pdeathsig KILL dbus-daemon --session --nofork --nopidfile --print-pid --address=" +
        address + " 2>" + directory_.file("log");
    daemon_ = ::popen(command.c_str(), "re");
    std::array<char, 32> line{};
    if (!daemon_ || !std::fgets(line.data(), line.size(), daemon_))
      throw std::runtime_error("no dbus-daemon");
    process_ = std::atoi(line.data());
    ::setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
  }
  void stop() {
    if (!daemon_) return;
    ::kill(process_, SIGKILL);
    ::pclose(std::exchange(daemon_, nullptr));
  }

 private:
  TemporaryDirectory directory_;
  std::FILE* daemon_ = nullptr;
  pid_t process_ = -1;
};

}  // namespace touchpanel::testing

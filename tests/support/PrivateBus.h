#pragma once

#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/TemporaryDirectory.h"

namespace touchpanel::testing {

/// A dbus-daemon of the test's own, which is this process's session bus while it runs. Nothing of the
/// machine's buses is touched. It has no activation files.
class PrivateBus {
 public:
  PrivateBus() { start(); }
  ~PrivateBus() { stop(); }
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;

  /// Also after stop(): another daemon at the same address.
  void start() {
    directory_.write(
        "bus.conf",
        "<!DOCTYPE busconfig PUBLIC '-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN' "
        "'http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd'><busconfig><listen>" +
            address() +
            "</listen><auth>EXTERNAL</auth><policy context='default'><allow send_destination='*'/>"
            "<allow receive_sender='*'/><allow own='*'/></policy></busconfig>");
    ::unlink(directory_.file("socket").c_str());
    int ready[2];
    if (::pipe2(ready, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    process_ = ::fork();
    if (process_ == 0) {
      ::prctl(PR_SET_PDEATHSIG, SIGKILL);  // not even a test that is killed leaves it behind
      const int log = ::open(directory_.file("log").c_str(), O_WRONLY | O_CREAT, 0600);
      ::dup2(log, STDERR_FILENO);
      const int out = ::dup(ready[1]);  // without close-on-exec
      const auto config = "--config-file=" + directory_.file("bus.conf");
      const auto print = "--print-address=" + std::to_string(out);
      ::execlp("dbus-daemon", "dbus-daemon", "--nofork", "--nopidfile", config.c_str(), print.c_str(),
               nullptr);
      ::_exit(127);
    }
    ::close(ready[1]);
    char byte = 0;
    const bool started = process_ > 0 && ::read(ready[0], &byte, 1) == 1;  // waits until it listens
    ::close(ready[0]);
    if (!started) throw std::runtime_error("dbus-daemon does not start");
    ::setenv("DBUS_SESSION_BUS_ADDRESS", address().c_str(), 1);
  }
  void stop() {
    if (process_ <= 0) return;
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
    process_ = -1;
  }
  std::string address() const { return "unix:path=" + directory_.file("socket"); }

 private:
  TemporaryDirectory directory_;
  pid_t process_ = -1;
};

}  // namespace touchpanel::testing

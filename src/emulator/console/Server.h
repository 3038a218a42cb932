#pragma once

#include <memory>
#include <string>
#include <vector>

#include "emulator/console/Session.h"
#include "emulator/console/Touchscreens.h"
#include "emulator/usbip/VhciBus.h"

namespace touchpanel::emulator {

/// The emulator's loop: commands from standard input and from everyone who connects to a socket, USB traffic
/// from the kernel, all in one thread.
class Server {
 public:
  Server();
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  /// Takes commands from `input`, answers on `output`; neither is closed. When such a source has come to its
  /// end and nobody else can give commands, run() returns.
  void addSource(int input, int output);
  /// Takes commands from everyone who connects to a local socket at `path`, which only its owner may do.
  /// Throws std::system_error.
  void listen(const std::string& path);
  /// Serves until "quit", SIGINT or SIGTERM, or the end of the last source; then unplugs everything.
  void run();

 private:
  struct Client;

  bool finished() const;
  void watch(std::vector<struct pollfd>& descriptors) const;
  int timeout(Time now) const;
  void readFrom(Client& client);
  static void writeTo(Client& client);
  void accept();
  void serviceBus();
  void progress(Time now);

  VhciBus bus_;
  Touchscreens touchscreens_{bus_};
  std::vector<std::unique_ptr<Client>> clients_;
  std::string socketPath_;
  int listener_ = -1;
  int signals_ = -1;
};

}  // namespace touchpanel::emulator

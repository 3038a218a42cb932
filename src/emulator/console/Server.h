#pragma once

#include <memory>
#include <string>
#include <vector>

#include "emulator/console/Touchscreens.h"
#include "emulator/usbip/VhciBus.h"
#include "providers/linux/loop/EventLoop.h"
#include "providers/linux/loop/FileDescriptor.h"

namespace touchpanel::emulator {

/// Commands from standard input and from the clients of a socket, and USB traffic of the kernel, in one thread.
/// The process must have blocked SIGINT and SIGTERM. Throws std::system_error where the system refuses.
class Server {
 public:
  Server();
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  /// Takes commands from `input` and answers on `output`, which may block.
  void addSource(FileDescriptor input, FileDescriptor output);
  /// Takes commands from every client of a local socket at `path`, to which only its owner may connect.
  void listen(const std::string& path);
  /// Serves until "quit", SIGINT or SIGTERM, or, without a socket, the end of the last source. Returns the exit
  /// status.
  int run();

 private:
  struct Client;

  void accept();
  void readFrom(Client& client);
  void writeTo(Client& client);
  void exchange();
  void proceed();
  void wake();

  EventLoop loop_;
  std::unique_ptr<Timer> timer_;  ///< for proceed(), which may destroy what other callbacks run in
  VhciBus bus_;
  Touchscreens touchscreens_{bus_};
  std::vector<std::unique_ptr<Client>> clients_;
  std::string socketPath_;
  FileDescriptor listener_;
  std::unique_ptr<EventLoop::Watch> connections_;
};

}  // namespace touchpanel::emulator

#include "emulator/console/Server.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <optional>
#include <system_error>

#include <fcntl.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "emulator/console/Session.h"

namespace touchpanel::emulator {
namespace {

[[noreturn]] void fail(const std::string& what) {
  throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

struct Server::Client {
  Client(FileDescriptor in, FileDescriptor out, Touchscreens& touchscreens)
      : input(std::move(in)), output(std::move(out)), session(touchscreens) {}

  FileDescriptor input, output;
  Session session;
  bool ended = false;  ///< no more commands come
  bool deaf = false;   ///< takes no more replies
  std::unique_ptr<EventLoop::Watch> reading;
  std::unique_ptr<EventLoop::Watch> writing;  ///< while replies wait for a slow reader

  bool written() const { return deaf || session.output().empty(); }
  bool done() const { return ended && session.idle() && written(); }
};

Server::Server() : timer_(loop_.create([this] { proceed(); })), bus_(loop_, [this] { wake(); }) {
  std::signal(SIGPIPE, SIG_IGN);
  loop_.stopOn({SIGINT, SIGTERM});
}

Server::~Server() {
  if (listener_) ::unlink(socketPath_.c_str());
}

void Server::addSource(FileDescriptor input, FileDescriptor output) {
  Client& client =
      *clients_.emplace_back(std::make_unique<Client>(std::move(input), std::move(output), touchscreens_));
  try {
    client.reading = loop_.watch(client.input.get(), [this, &client] { readFrom(client); });
  } catch (const std::system_error&) {
    // A regular file, which is never waited for.
    while (!client.ended) readFrom(client);
  }
}

void Server::listen(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) {
    errno = ENAMETOOLONG;
    fail(path);
  }
  std::memcpy(address.sun_path, path.c_str(), path.size());
  FileDescriptor listener(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  if (!listener) fail("socket");
  ::unlink(path.c_str());
  const mode_t before = ::umask(0077);
  const int bound = ::bind(listener.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
  ::umask(before);
  if (bound != 0 || ::listen(listener.get(), 8) != 0) fail(path);
  listener_ = std::move(listener);
  socketPath_ = path;
  connections_ = loop_.watch(listener_.get(), [this] { accept(); });
}

void Server::accept() {
  FileDescriptor connection(::accept4(listener_.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
  // The event loop watches a descriptor for one purpose: writing has its own.
  FileDescriptor output(connection ? ::fcntl(connection.get(), F_DUPFD_CLOEXEC, 0) : -1);
  if (output) addSource(std::move(connection), std::move(output));
}

void Server::readFrom(Client& client) {
  std::array<char, 4096> buffer;
  const ssize_t got = ::read(client.input.get(), buffer.data(), buffer.size());
  if (got > 0) {
    client.session.feed({buffer.data(), static_cast<std::size_t>(got)});
  } else if (got == 0 || (errno != EAGAIN && errno != EINTR)) {
    client.session.finish();
    client.ended = true;
    if (client.reading) client.reading->stop();
  }
  wake();
}

void Server::writeTo(Client& client) {
  if (client.written()) return;
  std::string& text = client.session.output();
  const ssize_t sent = ::write(client.output.get(), text.data(), text.size());
  if (sent >= 0) {
    text.erase(0, static_cast<std::size_t>(sent));
  } else if (errno != EAGAIN && errno != EINTR) {
    client.deaf = true;
  }
  if (client.written() || client.writing) return;
  client.writing = loop_.watch(
      client.output.get(), [] { return EventLoop::PollRequest{.events = EPOLLOUT}; },
      [this, &client] {
        writeTo(client);
        if (client.written()) client.writing->stop();
        wake();
      });
}

/// Carries out what has happened on the bus: touchscreens whose line is cut, or that pull their own plug.
void Server::exchange() {
  for (const UsbIpConnection* cut : bus_.exchange()) touchscreens_.unplug(*cut);
  touchscreens_.settle();
}

void Server::wake() { timer_->arm(loop_.now()); }

void Server::proceed() {
  exchange();
  const Time now = loop_.now();
  for (const auto& client : clients_) {
    if (client->written()) client->writing.reset();
    client->session.proceed(now);
  }
  touchscreens_.deliverReports();
  exchange();
  std::optional<Time> next;
  bool quit = false;
  for (const auto& client : clients_) {
    writeTo(*client);
    quit = quit || client->session.quitAsked();
    const auto deadline = client->session.deadline();
    if (deadline && (!next || *deadline < *next)) next = deadline;
  }
  std::erase_if(clients_, [](const auto& client) { return client->done(); });
  if (next) timer_->arm(*next);
  if (quit || (clients_.empty() && !listener_)) loop_.stop();
}

int Server::run() {
  wake();
  return loop_.run();
}

}  // namespace touchpanel::emulator

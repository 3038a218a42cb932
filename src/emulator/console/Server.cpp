#include "emulator/console/Server.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <system_error>

#include <poll.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace touchpanel::emulator {
namespace {

Time steadyNow() {
  return std::chrono::duration_cast<Time>(std::chrono::steady_clock::now().time_since_epoch());
}

[[noreturn]] void fail(const std::string& what) {
  throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

struct Server::Client {
  Client(int in, int out, bool owns, Touchscreens& touchscreens)
      : input(in), output(out), owned(owns), session(touchscreens) {}
  ~Client() {
    if (owned) ::close(input);
  }
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;

  int input, output;
  bool owned;          ///< a connection of the socket: one descriptor for both, closed by us
  bool ended = false;  ///< no more commands come
  bool deaf = false;   ///< takes no more replies
  Session session;

  bool done() const { return ended && session.idle() && (deaf || session.output().empty()); }
};

Server::Server() {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGINT);
  sigaddset(&set, SIGTERM);
  sigprocmask(SIG_BLOCK, &set, nullptr);
  signal(SIGPIPE, SIG_IGN);
  signals_ = ::signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
  if (signals_ < 0) fail("signalfd");
}

Server::~Server() {
  ::close(signals_);
  if (listener_ < 0) return;
  ::close(listener_);
  ::unlink(socketPath_.c_str());
}

void Server::addSource(int input, int output) {
  clients_.push_back(std::make_unique<Client>(input, output, false, touchscreens_));
}

void Server::listen(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) {
    errno = ENAMETOOLONG;
    fail(path);
  }
  std::memcpy(address.sun_path, path.c_str(), path.size());
  listener_ = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (listener_ < 0) fail("socket");
  ::unlink(path.c_str());
  const mode_t before = ::umask(0077);
  const int bound = ::bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address);
  ::umask(before);
  if (bound != 0 || ::listen(listener_, 8) != 0) fail(path);
  socketPath_ = path;
}

bool Server::finished() const {
  const bool quit = std::any_of(clients_.begin(), clients_.end(),
                                [](const auto& client) { return client->session.quitAsked(); });
  return quit || (clients_.empty() && listener_ < 0);
}

void Server::watch(std::vector<pollfd>& descriptors) const {
  descriptors.push_back({signals_, POLLIN, 0});
  if (listener_ >= 0) descriptors.push_back({listener_, POLLIN, 0});
  for (const auto& client : clients_) {
    if (!client->ended) descriptors.push_back({client->input, POLLIN, 0});
    if (!client->deaf && !client->session.output().empty())
      descriptors.push_back({client->output, POLLOUT, 0});
  }
  bus_.watch(descriptors);
}

int Server::timeout(Time now) const {
  std::optional<Time> earliest;
  for (const auto& client : clients_) {
    const auto deadline = client->session.deadline();
    if (deadline && (!earliest || *deadline < *earliest)) earliest = deadline;
  }
  if (!earliest) return -1;
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(*earliest - now);
  return static_cast<int>(std::max<std::int64_t>(left.count(), 0));
}

void Server::readFrom(Client& client) {
  std::array<char, 4096> buffer;
  const ssize_t got = ::read(client.input, buffer.data(), buffer.size());
  if (got > 0) {
    client.session.feed({buffer.data(), static_cast<std::size_t>(got)});
  } else if (got == 0 || (errno != EAGAIN && errno != EINTR)) {
    client.session.finish();
    client.ended = true;
  }
}

void Server::writeTo(Client& client) {
  std::string& text = client.session.output();
  if (text.empty() || client.deaf) return;
  const ssize_t written = ::write(client.output, text.data(), text.size());
  if (written >= 0) {
    text.erase(0, static_cast<std::size_t>(written));
  } else if (errno != EAGAIN && errno != EINTR) {
    client.deaf = true;
  }
}

void Server::accept() {
  const int connection = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
  if (connection >= 0)
    clients_.push_back(std::make_unique<Client>(connection, connection, true, touchscreens_));
}

void Server::serviceBus() {
  for (const UsbIpConnection* cut : bus_.service()) touchscreens_.unplug(*cut);
  touchscreens_.settle();
}

void Server::progress(Time now) {
  serviceBus();
  for (const auto& client : clients_) client->session.proceed(now);
  touchscreens_.deliverReports();
  serviceBus();
  std::erase_if(clients_, [](const auto& client) { return client->done(); });
}

void Server::run() {
  std::vector<pollfd> descriptors;
  while (!finished()) {
    descriptors.clear();
    watch(descriptors);
    if (::poll(descriptors.data(), descriptors.size(), timeout(steadyNow())) < 0 && errno != EINTR)
      fail("poll");
    auto ready = [&](int descriptor, short events) {
      return std::any_of(descriptors.begin(), descriptors.end(), [&](const pollfd& watched) {
        return watched.fd == descriptor && (watched.revents & (events | POLLHUP | POLLERR)) != 0;
      });
    };
    if (ready(signals_, POLLIN)) break;
    if (listener_ >= 0 && ready(listener_, POLLIN)) accept();
    for (const auto& client : clients_) {
      if (!client->ended && ready(client->input, POLLIN)) readFrom(*client);
    }
    progress(steadyNow());
    for (const auto& client : clients_) writeTo(*client);
  }
}

}  // namespace touchpanel::emulator

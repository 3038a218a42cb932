#include "emulator/VhciBus.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <sstream>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include "emulator/VhciPorts.h"

namespace touchpanel::emulator {
namespace {

constexpr int kFullSpeed = 2;

std::string reasonOf(int error) { return std::generic_category().message(error); }

/// Writes `text` at once, as files of the kernel want it. Returns 0 or an error number.
int writeAtOnce(const std::string& path, const std::string& text) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (file < 0) return errno;
  const ssize_t written = ::write(file, text.data(), text.size());
  const int error = written < 0 ? errno : 0;
  ::close(file);
  return error;
}

PlugResult failed(std::string reason) { return {PlugResult::Outcome::Failed, 0, std::move(reason)}; }

}  // namespace

VhciBus::VhciBus(std::string controller) : controller_(std::move(controller)) {}

VhciBus::~VhciBus() {
  for (const Line& line : lines_) hangUp(line);
}

// The first controller's ports are in "status", those of further ones in "status.1" and so on.
std::string VhciBus::portList() const {
  std::stringstream all;
  std::string path = controller_ + "/status";
  for (int further = 1;; ++further) {
    std::ifstream file(path);
    if (!file) return all.str();
    all << file.rdbuf();
    path = controller_ + "/status." + std::to_string(further);
  }
}

PlugResult VhciBus::plug(UsbIpConnection& connection, std::optional<int> wanted) {
  const std::string ports = portList();
  if (ports.empty()) return failed("no virtual USB controller: is the module vhci-hcd loaded?");
  const std::optional<int> port = freeVhciPort(ports, wanted);
  if (!port) return {PlugResult::Outcome::PortBusy, 0, wanted ? "that port is taken" : "every port is taken"};

  std::array<int, 2> ends{};
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return failed(reasonOf(errno));
  const auto [ours, kernels] = ends;
  const int deviceId = *port + 1;
  std::ostringstream request;
  request << *port << ' ' << kernels << ' ' << deviceId << ' ' << kFullSpeed;
  const int error = writeAtOnce(controller_ + "/attach", request.str());
  ::close(kernels);
  if (error != 0) {
    ::close(ours);
    if (error == EBUSY) return {PlugResult::Outcome::PortBusy, 0, reasonOf(error)};
    return failed(controller_ + "/attach: " + reasonOf(error));
  }
  lines_.push_back({&connection, ours, *port});
  return {PlugResult::Outcome::Plugged, *port, {}};
}

void VhciBus::unplug(UsbIpConnection& connection) {
  const auto line = std::find_if(lines_.begin(), lines_.end(),
                                 [&](const Line& candidate) { return candidate.connection == &connection; });
  if (line == lines_.end()) return;
  hangUp(*line);
  lines_.erase(line);
}

void VhciBus::hangUp(const Line& line) const {
  writeAtOnce(controller_ + "/detach", std::to_string(line.port));
  ::close(line.socket);
}

void VhciBus::watch(std::vector<pollfd>& descriptors) const {
  for (const Line& line : lines_) {
    const bool more = !line.connection->outgoing().empty();
    descriptors.push_back({line.socket, static_cast<short>(more ? POLLIN | POLLOUT : POLLIN), 0});
  }
}

std::vector<UsbIpConnection*> VhciBus::service() {
  std::vector<UsbIpConnection*> cut;
  // A port that the kernel has given up may be another device's by now: it is not told to detach.
  std::erase_if(lines_, [&](const Line& line) {
    if (receive(line) && send(line)) return false;
    cut.push_back(line.connection);
    ::close(line.socket);
    return true;
  });
  return cut;
}

bool VhciBus::receive(const Line& line) {
  std::array<std::uint8_t, 16384> buffer;
  for (;;) {
    const ssize_t got = ::recv(line.socket, buffer.data(), buffer.size(), MSG_DONTWAIT);
    if (got < 0) return errno == EAGAIN || errno == EINTR;
    if (got == 0) return false;
    if (!line.connection->receive(std::span(buffer).first(static_cast<std::size_t>(got)))) return false;
  }
}

bool VhciBus::send(const Line& line) {
  std::vector<std::uint8_t>& data = line.connection->outgoing();
  while (!data.empty()) {
    const ssize_t sent = ::send(line.socket, data.data(), data.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (sent < 0) return errno == EAGAIN || errno == EINTR;
    data.erase(data.begin(), data.begin() + sent);
  }
  return true;
}

}  // namespace touchpanel::emulator

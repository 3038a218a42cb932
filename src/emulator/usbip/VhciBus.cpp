#include "emulator/usbip/VhciBus.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string_view>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include "emulator/usbip/VhciPorts.h"

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
PlugResult busy(std::string reason) { return {PlugResult::Outcome::PortBusy, 0, std::move(reason)}; }

std::string contents(const std::filesystem::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Whether the kernel knows a device at that port of the controller's hub for devices below super speed.
bool hasDevice(const std::filesystem::path& controller, int hubPort) {
  constexpr std::string_view kRootHub = "usb", kHighSpeed = "480\n";
  std::error_code none;
  for (const auto& entry : std::filesystem::directory_iterator(controller, none)) {
    const std::string name = entry.path().filename();
    if (!name.starts_with(kRootHub) || contents(entry.path() / "speed") != kHighSpeed) continue;
    return std::filesystem::exists(entry.path() /
                                   (name.substr(kRootHub.size()) + '-' + std::to_string(hubPort)));
  }
  return false;
}

}  // namespace

VhciBus::VhciBus(std::string platform) : platform_(std::move(platform)) {}

VhciBus::~VhciBus() {
  for (const Line& line : lines_) hangUp(line);
}

std::string VhciBus::controller(int index) const { return platform_ + "/vhci_hcd." + std::to_string(index); }

PlugResult VhciBus::plug(UsbIpConnection& connection, std::optional<int> wanted) {
  // The first controller has the files of all: the list of its own ports is "status", the next one
  // "status.1".
  for (int index = 0;; ++index) {
    const std::string suffix = index == 0 ? "" : "." + std::to_string(index);
    const std::string ports = contents(controller(0) + "/status" + suffix);
    if (ports.empty() && index == 0)
      return failed("no virtual USB controller: is the module vhci-hcd loaded?");
    if (ports.empty()) return busy(wanted ? "that port is taken" : "every port is taken");
    const std::optional<VhciPort> port = freeVhciPort(ports, wanted);
    if (!port) continue;
    // A device that comes before the kernel has let go of the last one is taken for that one.
    if (hasDevice(controller(index), port->hubPort)) return busy("the last device has not quite gone yet");
    return plugAt(connection, port->port);
  }
}

PlugResult VhciBus::plugAt(UsbIpConnection& connection, int port) {
  std::array<int, 2> ends{};
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return failed(reasonOf(errno));
  const auto [ours, kernels] = ends;
  const int deviceId = port + 1;
  std::ostringstream request;
  request << port << ' ' << kernels << ' ' << deviceId << ' ' << kFullSpeed;
  const int error = writeAtOnce(controller(0) + "/attach", request.str());
  ::close(kernels);
  if (error == 0) {
    lines_.push_back({&connection, ours, port});
    return {PlugResult::Outcome::Plugged, port, {}};
  }
  ::close(ours);
  return error == EBUSY ? busy(reasonOf(error)) : failed(controller(0) + "/attach: " + reasonOf(error));
}

void VhciBus::unplug(UsbIpConnection& connection) {
  const auto line = std::find_if(lines_.begin(), lines_.end(),
                                 [&](const Line& candidate) { return candidate.connection == &connection; });
  if (line == lines_.end()) return;
  hangUp(*line);
  lines_.erase(line);
}

void VhciBus::hangUp(const Line& line) const {
  writeAtOnce(controller(0) + "/detach", std::to_string(line.port));
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

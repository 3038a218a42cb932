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
#include <sys/epoll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "emulator/usbip/VhciPorts.h"

namespace touchpanel::emulator {
namespace {

constexpr int kFullSpeed = 2;

/// Where the kernel shows its controllers. The first one has the files of all.
std::string controller(int index) { return "/sys/devices/platform/vhci_hcd." + std::to_string(index); }

std::string reasonOf(int error) { return std::generic_category().message(error); }

/// Writes `text` at once, as files of the kernel want it. Returns 0 or an error number.
int writeAtOnce(const std::string& path, const std::string& text) {
  const FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
  return file && ::write(file.get(), text.data(), text.size()) >= 0 ? 0 : errno;
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

VhciBus::VhciBus(EventLoop& loop, std::function<void()> active) : loop_(loop), active_(std::move(active)) {}

VhciBus::~VhciBus() {
  for (const auto& line : lines_) hangUp(*line);
}

PlugResult VhciBus::plug(UsbIpConnection& connection, std::optional<int> wanted) {
  for (int index = 0;; ++index) {
    // The first controller's own ports are listed in "status", those of the next one in "status.1".
    std::string list = controller(0) + "/status";
    if (index > 0) list += '.' + std::to_string(index);
    const std::string ports = contents(list);
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
  FileDescriptor ours(ends[0]);
  const FileDescriptor kernels(ends[1]);
  const int deviceId = port + 1;
  std::ostringstream request;
  request << port << ' ' << kernels.get() << ' ' << deviceId << ' ' << kFullSpeed;
  const int error = writeAtOnce(controller(0) + "/attach", request.str());
  if (error == EBUSY) return busy(reasonOf(error));
  if (error != 0) return failed(controller(0) + "/attach: " + reasonOf(error));

  Line& line =
      *lines_.emplace_back(std::make_unique<Line>(Line{&connection, std::move(ours), port, false, {}}));
  line.watch = loop_.watch(
      line.socket.get(),
      [&line] {
        return EventLoop::PollRequest{.events =
                                          line.connection->outgoing().empty() ? EPOLLIN : EPOLLIN | EPOLLOUT};
      },
      [this, &line] {
        line.cut = !receive(line) || !send(line);
        if (line.cut) line.watch->stop();
        active_();
      });
  return {PlugResult::Outcome::Plugged, port, {}};
}

void VhciBus::unplug(UsbIpConnection& connection) {
  std::erase_if(lines_, [&](const auto& line) {
    if (line->connection != &connection) return false;
    hangUp(*line);
    return true;
  });
}

void VhciBus::hangUp(const Line& line) {
  // A port that the kernel has given up may be another device's by now.
  if (!line.cut) writeAtOnce(controller(0) + "/detach", std::to_string(line.port));
}

std::vector<UsbIpConnection*> VhciBus::exchange() {
  std::vector<UsbIpConnection*> cut;
  for (const auto& line : lines_) {
    line->cut = line->cut || !send(*line);
    if (line->cut) cut.push_back(line->connection);
  }
  return cut;
}

bool VhciBus::receive(const Line& line) {
  std::array<std::uint8_t, 16384> buffer;
  for (;;) {
    const ssize_t got = ::recv(line.socket.get(), buffer.data(), buffer.size(), MSG_DONTWAIT);
    if (got < 0) return errno == EAGAIN || errno == EINTR;
    if (got == 0) return false;
    if (!line.connection->receive(std::span(buffer).first(static_cast<std::size_t>(got)))) return false;
  }
}

bool VhciBus::send(const Line& line) {
  std::vector<std::uint8_t>& data = line.connection->outgoing();
  while (!data.empty()) {
    const ssize_t sent = ::send(line.socket.get(), data.data(), data.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (sent < 0) return errno == EAGAIN || errno == EINTR;
    data.erase(data.begin(), data.begin() + sent);
  }
  return true;
}

}  // namespace touchpanel::emulator

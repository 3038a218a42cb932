#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

#include "emulator/console/Commands.h"
#include "emulator/console/Server.h"

namespace {

constexpr std::string_view kUsage =
    "Usage: touchscreen-emulator [--socket PATH] [SCRIPT]\n"
    "\n"
    "USB touchscreens in software, plugged into this machine's own kernel through its virtual\n"
    "USB controller (as root, after \"modprobe vhci-hcd\"). They can do what real ones can: be found,\n"
    "calibrated, configured, touched, unplugged, and fail.\n"
    "\n"
    "Commands come from SCRIPT, or else from standard input, one to a line; each is answered with one\n"
    "line, \"ok\" or \"error\". With --socket they also come from everyone who connects to a local\n"
    "socket at PATH, and the emulator goes on after the end of its input.\n"
    "\n"
    "Coordinates are fractions of the screen, 0 0 its upper left corner.\n"
    "\n";

constexpr std::string_view kMore =
    "\n"
    "KIND is infrared, optical or configuration-only. OPTIONs of a new touchscreen: product, serial,\n"
    "port, and how its sensor sits on the screen: offset=X,Y scale=X,Y skew=X,Y barrel=K noise=N seed=N.\n"
    "FAULT is none, ignores-command, wrong-echo, wrong-reply-class, late-reply, dies-after-packets,\n"
    "stalls, garbled-reply, short-reply, odd-version-length, unterminated-bar-code or\n"
    "unplugs-after-packets.\n";

struct Options {
  std::string socketPath;
  std::string script;
  bool help = false;
  bool understood = true;
};

Options parse(int count, char** words) {
  Options options;
  for (int i = 1; i < count; ++i) {
    const std::string_view word = words[i];
    if (word == "--help" || word == "-h") {
      options.help = true;
    } else if (word == "--socket" && i + 1 < count) {
      options.socketPath = words[++i];
    } else if (!word.starts_with("-") && options.script.empty()) {
      options.script = word;
    } else {
      options.understood = false;
    }
  }
  return options;
}

touchpanel::FileDescriptor inputOf(const Options& options) {
  const bool standard = options.script.empty();
  touchpanel::FileDescriptor input(standard ? ::dup(STDIN_FILENO)
                                            : ::open(options.script.c_str(), O_RDONLY | O_CLOEXEC));
  if (!input && !standard) throw std::system_error(errno, std::generic_category(), options.script);
  return input;
}

}  // namespace

int main(int count, char** words) {
  using namespace touchpanel;
  using namespace touchpanel::emulator;
  const Options options = parse(count, words);
  if (options.help || !options.understood) {
    const std::string text = std::string(kUsage) + "Commands:\n" + commandHelp() + std::string(kMore);
    std::fputs(text.c_str(), options.help ? stdout : stderr);
    return options.help ? 0 : 2;
  }
  sigset_t signals;
  sigemptyset(&signals);
  for (const int each : {SIGINT, SIGTERM}) sigaddset(&signals, each);
  ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  try {
    Server server;
    if (!options.socketPath.empty()) server.listen(options.socketPath);
    server.addSource(inputOf(options), FileDescriptor(::dup(STDOUT_FILENO)));
    return server.run();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "touchscreen-emulator: %s\n", error.what());
    return 1;
  }
}

#include "touchdriverd/Options.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include <getopt.h>

#include "platform_build/BuildConstants.h"
#include "providers/linux/dbus/BusNames.h"

namespace touchpanel::driver {

namespace {
constexpr char kUsage[] =
    "Usage: touchdriverd [OPTION...]\n"
    "The touch driver service: takes the raw touches of USB touchscreens, applies calibration and touch\n"
    "behaviour, and gives the desktop a pointer.\n"
    "\n"
    "  --bus=system|session    bus to serve; on the session bus under the name\n"
    "                          %s (default: system, %s)\n"
    "  --state-directory=DIR   where settings are kept (default: $STATE_DIRECTORY, else %s)\n"
    "  --verbose               tell every step\n"
    "  --version               print the version and exit\n"
    "  --help                  print this and exit\n";
constexpr char kDefaultStateDirectory[] = "/var/lib/touchdriverd";

std::string defaultStateDirectory() {
  const char* given = std::getenv("STATE_DIRECTORY");
  return given && *given ? given : kDefaultStateDirectory;
}

bool parseBus(std::string_view text, Bus& bus) {
  if (text != "system" && text != "session") return false;
  bus = text == "system" ? Bus::System : Bus::Session;
  return true;
}
}  // namespace

std::optional<Options> parseOptions(int argc, char** argv, int& exitStatus) {
  static const option kOptions[] = {
      {"bus", required_argument, nullptr, 'b'}, {"state-directory", required_argument, nullptr, 's'},
      {"verbose", no_argument, nullptr, 'v'},   {"version", no_argument, nullptr, 'V'},
      {"help", no_argument, nullptr, 'h'},      {nullptr, 0, nullptr, 0}};
  Options options;
  options.stateDirectory = defaultStateDirectory();
  exitStatus = EXIT_FAILURE;
  for (int choice = 0; (choice = ::getopt_long(argc, argv, "", kOptions, nullptr)) != -1;) {
    switch (choice) {
      case 'b':
        if (parseBus(optarg, options.bus)) break;
        std::fprintf(stderr, "touchdriverd: no such bus: %s\n", optarg);
        return std::nullopt;
      case 's':
        options.stateDirectory = optarg;
        break;
      case 'v':
        options.verbose = true;
        break;
      case 'V':
        std::printf("touchdriverd %s, interface version %u\n", kBuildVersion, bus_name::kInterfaceVersion);
        exitStatus = EXIT_SUCCESS;
        return std::nullopt;
      case 'h':
        std::printf(kUsage, bus_name::kDevelopmentService, bus_name::kService, kDefaultStateDirectory);
        exitStatus = EXIT_SUCCESS;
        return std::nullopt;
      default:
        return std::nullopt;  // getopt has printed why
    }
  }
  if (optind < argc) {
    std::fprintf(stderr, "touchdriverd: what is \"%s\"?\n", argv[optind]);
    return std::nullopt;
  }
  return options;
}

}  // namespace touchpanel::driver

// Composition root of the touch driver service; no logic.
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <system_error>

#include <malloc.h>
#include <sys/resource.h>

#include "config/DataSet.h"
#include "driver/service/DriverService.h"
#include "platform_build/BuildConstants.h"
#include "providers/files/LibplistFiles.h"
#include "providers/linux/dbus/BusNames.h"
#include "providers/linux/input/EvdevInputs.h"
#include "providers/linux/input/UdevTouchscreens.h"
#include "providers/linux/input/UinputDevices.h"
#include "providers/linux/loop/EventLoop.h"
#include "providers/linux/loop/ThreadedFileWorker.h"
#include "providers/linux/loop/TouchLoop.h"
#include "touchdriverd/BusLoop.h"
#include "touchdriverd/BusService.h"
#include "touchdriverd/Heartbeat.h"
#include "touchdriverd/Options.h"
#include "touchdriverd/PanelFiles.h"
#include "touchdriverd/ReadableFileCalls.h"
#include "touchdriverd/StandardError.h"
#include "touchdriverd/UsbCalibrationReader.h"

using namespace touchpanel;
using namespace touchpanel::driver;

namespace {
void blockSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int each : {SIGTERM, SIGINT}) sigaddset(&signals, each);
  ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

// A touchscreen is read on a thread of its own, for a second after its arrival. With an arena for each of
// them a wall of 16 touchscreens would hold 6 MB more until the service ends.
void shareOneArena() { ::mallopt(M_ARENA_MAX, 1); }

// The bus delivers messages of up to 32 MB, which are refused and freed at once. The threshold is the default, set so that
// it stays: the allocator would raise it with the first of them, and keep the memory of the next ones.
void returnLargeMemory() { ::mallopt(M_MMAP_THRESHOLD, 128 * 1024); }

/// What the service manager gave is for touches; threads that are started from now on have none of it.
void returnPriority() {
  if (::getpriority(PRIO_PROCESS, 0) < 0) ::setpriority(PRIO_PROCESS, 0, 0);
}

int serve(const Options& options) {
  shareOneArena();
  returnLargeMemory();
  blockSignals();
  std::error_code ignored;  // saving the first setting reports a directory that is not there
  std::filesystem::create_directories(options.stateDirectory, ignored);

  StandardError diagnostics(true);
  StandardError details(options.verbose);
  TouchLoop touches;
  returnPriority();
  EventLoop loop;
  loop.stopOn({SIGTERM, SIGINT});
  files::LibplistFiles files;
  ReadableFileCalls readable;
  files::LibplistFiles sharedFiles(readable);
  ThreadedFileWorker worker(loop);
  StateStore store(files, worker, options.stateDirectory, diagnostics);
  EvdevInputs inputs(touches, loop, diagnostics);
  UinputDevices outputs;
  UsbCalibrationReader calibrations(loop, files, ConfigPaths::in(kConfigDirectory).deviceConfig, details);
  DriverService service({touches, inputs, outputs, loop, loop, calibrations, diagnostics}, store);
  UdevTouchscreens touchscreens(loop, service, details);
  PanelFiles panelFiles(sharedFiles, worker, kConfigDirectory);
  BusService bus(service, panelFiles, options.bus,
                 options.bus == Bus::System ? bus_name::kService : bus_name::kDevelopmentService,
                 trustInRootAnd(TOUCHPANEL_ACCESS_GROUP), diagnostics);
  const BusLoop busLoop(loop, bus);
  const Heartbeat heartbeat(loop, touches);
  details.line("Serving.");
  return loop.run();
}
}  // namespace

int main(int argc, char** argv) {
  int exitStatus = EXIT_FAILURE;
  const auto options = parseOptions(argc, argv, exitStatus);
  if (!options) return exitStatus;
  try {
    return serve(*options);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "touchdriverd: %s\n", error.what());
    return EXIT_FAILURE;
  }
}

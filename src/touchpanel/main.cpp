#include <QApplication>

#include "panel/ControlPanel.h"
#include "panel/SingleInstance.h"
#include "platform_build/BuildConstants.h"
#include "providers/files/LibplistFiles.h"
#include "providers/files/OwnDirectoryFiles.h"
#include "providers/linux/dbus/DriverServiceClient.h"
#include "providers/linux/dbus/FilesThroughService.h"
#include "providers/linux/desktop/GSettingsDoubleClick.h"
#include "providers/linux/desktop/JoinedDoubleClick.h"
#include "providers/linux/usb/LibusbBus.h"
#include "providers/monitors/QtMonitors.h"
#include "providers/process/BlockingClock.h"
#include "providers/process/StandardOutput.h"
#include "providers/process/SystemTime.h"
#include "providers/process/UserDirectories.h"

/// The control panel on a real machine.
int main(int argc, char** argv) {
  using namespace touchpanel;
  const auto token = activationToken();
  const QApplication application(argc, argv);
  const SingleInstance instance("touchpanel", token);
  if (!instance.isFirst()) return 0;
  BlockingClock clock;
  StandardOutput diagnostics;
  SystemTime time;
  files::LibplistFiles files;
  files::OwnDirectoryFiles historyFiles(files);
  LibusbBus usb(TOUCH_VENDOR_ID);
  DriverServiceClient service(diagnostics);
  FilesThroughService sharedFiles(files, service);
  GSettingsDoubleClick desktop;
  JoinedDoubleClick registry(service, desktop);
  QtMonitors monitors;
  ControlPanel panel({.usbNotifications = usb,
                      .usbServices = usb,
                      .registry = registry,
                      .monitors = monitors,
                      .files = sharedFiles,
                      .clock = clock,
                      .diagnostics = diagnostics,
                      .paths = ConfigPaths::in(kConfigDirectory),
                      .history = {historyFiles, time, userStateDirectory() + "/touchpanel/history"},
                      .libraries = {libusbInUse(),
                                    files::libplistInUse(),
                                    files::expatInUse(),
                                    {"sdbus-c++", "GNU LGPL 2.1 with exception"},
                                    {"libsystemd", "GNU LGPL 2.1"},
                                    glibInUse()}});
  return panel.run();
}

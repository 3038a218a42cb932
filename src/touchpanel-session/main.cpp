#include <QDir>
#include <QGuiApplication>
#include <QLockFile>
#include <QStandardPaths>
#include <cstring>

#include "providers/linux/dbus/DriverServiceClient.h"
#include "providers/linux/desktop/GnomeTouchOutputs.h"
#include "providers/linux/desktop/KWinTouchOutputs.h"
#include "providers/monitors/QtMonitors.h"
#include "providers/process/StandardOutput.h"
#include "session/SessionPlacements.h"
#include "touchpanel-session/BusSignals.h"

namespace touchpanel {
namespace {

/// Every desktop's own setting; those that are not running take nothing.
class AnyTouchOutputs final : public TouchOutputs {
 public:
  void assign(const std::string& name, const Monitor& monitor) override {
    gnome_.assign(name, monitor);
    kwin_.assign(name, monitor);
  }

 private:
  GnomeTouchOutputs gnome_;
  KWinTouchOutputs kwin_;
};

/// One to a display server.
QString lockPath() {
  QString display = qEnvironmentVariable("WAYLAND_DISPLAY", qEnvironmentVariable("DISPLAY"));
  display.replace(u'/', u'_');
  return QDir(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation))
      .filePath(QStringLiteral("touchpanel-session-%1.lock").arg(display));
}

/// `--session-bus`: the driver service is the one for trying out.
int run(bool onSessionBus) {
  QLockFile lock(lockPath());
  lock.setStaleLockTime(0);  // it belongs to its process for as long as that lives
  if (!lock.tryLock() && lock.error() == QLockFile::LockFailedError) return 0;
  StandardOutput diagnostics;
  const char* service = onSessionBus ? bus_name::kDevelopmentService : bus_name::kService;
  DriverServiceClient registry(diagnostics, onSessionBus ? Bus::Session : Bus::System, service);
  QtMonitors monitors;
  AnyTouchOutputs outputs;
  SessionPlacements placements(registry, monitors, outputs);
  BusSignals buses(onSessionBus ? QDBusConnection::sessionBus() : QDBusConnection::systemBus(), service);
  const auto renew = [&] { placements.renew(); };
  monitors.onChange(renew);
  buses.onRenewal = renew;
  buses.onChange = [&] { placements.follow(); };
  renew();
  return QGuiApplication::exec();
}

}  // namespace
}  // namespace touchpanel

/// Tells the driver service of the monitors for as long as the user's session lasts. Shows nothing.
int main(int argc, char** argv) {
  // Qt would reach some compositors over X, which knows less of the monitors.
  if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "wayland;xcb");
  const QGuiApplication application(argc, argv);
  return touchpanel::run(argc > 1 && std::strcmp(argv[1], "--session-bus") == 0);
}

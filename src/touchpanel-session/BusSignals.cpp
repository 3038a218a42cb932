#include "touchpanel-session/BusSignals.h"

#include "providers/linux/dbus/BusNames.h"

namespace touchpanel {

BusSignals::BusSignals(QDBusConnection bus, const QString& service)
    : watcher_(service, bus, QDBusServiceWatcher::WatchForRegistration) {
  for (auto* timer : {&change_, &renewal_}) timer->setSingleShot(true);
  connect(&change_, &QTimer::timeout, this, [this] { onChange(); });
  connect(&renewal_, &QTimer::timeout, this, [this] { onRenewal(); });
  connect(&watcher_, &QDBusServiceWatcher::serviceRegistered, &renewal_, qOverload<>(&QTimer::start));
  bus.connect(service, bus_name::kRootPath, QStringLiteral("com.VARNEXO.TouchDriver1.Registry"),
              QStringLiteral("Changed"), this, SLOT(changed()));
  // Of every session: which one is this one's need not be known, since renewing costs one look.
  QDBusConnection::systemBus().connect(
      QStringLiteral("org.freedesktop.login1"), {}, QStringLiteral("org.freedesktop.DBus.Properties"),
      QStringLiteral("PropertiesChanged"), this, SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
  QDBusConnection::sessionBus().connect(QStringLiteral("org.kde.KWin"),
                                        QStringLiteral("/org/kde/KWin/InputDevice"),
                                        QStringLiteral("org.kde.KWin.InputDeviceManager"),
                                        QStringLiteral("deviceAdded"), this, SLOT(changed()));
}

void BusSignals::propertiesChanged(const QString& interface, const QVariantMap& changed,
                                   const QStringList& /*invalidated*/) {
  if (interface == QLatin1String("org.freedesktop.login1.Session") &&
      changed.contains(QStringLiteral("Active")))
    renewal_.start();
}

}  // namespace touchpanel

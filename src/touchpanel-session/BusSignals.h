#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QTimer>
#include <QVariantMap>
#include <functional>

namespace touchpanel {

/// What the session has to hear on the buses: of the driver service, of the login service, and of the compositor. A bus
/// that is not there is not heard.
class BusSignals final : public QObject {
  Q_OBJECT

 public:
  /// The driver service is `service` on `bus`.
  BusSignals(QDBusConnection bus, const QString& service);

  /// A session of this machine became active or inactive, or the driver service has started.
  std::function<void()> onRenewal;
  /// A touchscreen has come or gone, somebody wrote to one, or the compositor has a new device. Signals that wait at the
  /// same time are one.
  std::function<void()> onChange;

 private Q_SLOTS:
  void changed() { change_.start(); }
  void propertiesChanged(const QString& interface, const QVariantMap& changed,
                         const QStringList& invalidated);

 private:
  QDBusServiceWatcher watcher_;
  QTimer change_;
  QTimer renewal_;
};

}  // namespace touchpanel

#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QScreen>
#include <QTimer>

#include "platform/Monitors.h"

namespace touchpanel {

/// The monitors of the display server that Qt is connected to, and of the Wayland compositor of the session, where there
/// is one. Needs a QGuiApplication that outlives it.
class QtMonitors final : public Monitors, private QAbstractNativeEventFilter {
 public:
  QtMonitors();
  ~QtMonitors() override;

  Desktop desktop() override;
  /// Changes that come within a tenth of a second are one.
  void onChange(std::function<void()> changed) override { changed_ = std::move(changed); }

 private:
  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
  void watch(QScreen* screen);

  QObject context_;  ///< ends connections when this goes
  QTimer settled_;
  std::function<void()> changed_;
};

}  // namespace touchpanel

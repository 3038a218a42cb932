#include "providers/monitors/QtMonitors.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <chrono>
#include <span>

#include "platform/EdidReading.h"
#include "providers/monitors/WaylandOutputs.h"
#include "providers/monitors/XMonitors.h"

namespace touchpanel {

namespace {
constexpr std::chrono::milliseconds kSettling{100};

xcb_connection_t* xConnection() {
  const auto* x = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x == nullptr ? nullptr : x->connection();
}

Desktop desktopByScreens() {
  Desktop desktop;
  const auto* primary = QGuiApplication::primaryScreen();
  if (primary == nullptr) return desktop;
  const QRect whole = primary->virtualGeometry();
  desktop.width = whole.width();
  desktop.height = whole.height();
  for (const auto* screen : QGuiApplication::screens()) {
    const QRect area = screen->geometry().translated(-whole.topLeft());
    Monitor monitor;
    monitor.connector = screen->name().toStdString();
    monitor.area = {area.x(), area.y(), area.width(), area.height()};
    monitor.widthMm = qRound(screen->physicalSize().width());
    monitor.heightMm = qRound(screen->physicalSize().height());
    monitor.isPrimary = screen == primary;
    desktop.monitors.push_back(std::move(monitor));
  }
  return desktop;
}

/// What the kernel has read from the monitor at `connector`: Wayland passes nothing of it on.
Monitor::Edid edidFromKernel(const std::string& connector) {
  const QDir cards(QStringLiteral("/sys/class/drm"));
  const auto found = cards.entryList({QStringLiteral("card*-") + QString::fromStdString(connector)});
  if (connector.empty() || found.isEmpty()) return {};
  QFile file(cards.filePath(found.first()) + QStringLiteral("/edid"));
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QByteArray block = file.read(128);
  return readEdid(
      {reinterpret_cast<const std::uint8_t*>(block.data()), static_cast<std::size_t>(block.size())});
}

std::string nameOf(const Monitor& monitor) {
  const bool hasText = !monitor.edid.model.empty() && !monitor.edid.model.starts_with("0x");
  return hasText ? monitor.edid.model + " (" + monitor.connector + ')' : monitor.connector;
}

void takeOver(const WaylandOutputs& wayland, Desktop& desktop) {
  desktop.placesPointers = wayland.placesPointers;
  desktop.placesTouches = wayland.placesTouches;
  for (auto& monitor : desktop.monitors) {
    const auto found = wayland.outputs.find(monitor.connector);
    if (found == wayland.outputs.end()) continue;
    monitor.turn = found->second.turn;
    monitor.widthMm = found->second.widthMm;
    monitor.heightMm = found->second.heightMm;
  }
}
}  // namespace

QtMonitors::QtMonitors() {
  settled_.setSingleShot(true);
  settled_.setInterval(kSettling);
  QObject::connect(&settled_, &QTimer::timeout, &context_, [this] {
    if (changed_) changed_();
  });
  const auto changed = [this] { settled_.start(); };
  QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &context_, [this](QScreen* screen) {
    watch(screen);
    settled_.start();
  });
  QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &context_, changed);
  QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &context_, changed);
  for (auto* screen : QGuiApplication::screens()) watch(screen);
  // A turn that leaves the size as it is, and a change of the root window alone, are events that Qt keeps to itself.
  qGuiApp->installNativeEventFilter(this);
}

QtMonitors::~QtMonitors() { qGuiApp->removeNativeEventFilter(this); }

void QtMonitors::watch(QScreen* screen) {
  const auto changed = [this] { settled_.start(); };
  QObject::connect(screen, &QScreen::geometryChanged, &context_, changed);
  QObject::connect(screen, &QScreen::virtualGeometryChanged, &context_, changed);
  QObject::connect(screen, &QScreen::orientationChanged, &context_, changed);
}

bool QtMonitors::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/) {
  if (eventType == "xcb_generic_event_t" && xConnection() != nullptr &&
      isLayoutEvent(xConnection(), *static_cast<const xcb_generic_event_t*>(message)))
    settled_.start();
  return false;
}

Desktop QtMonitors::desktop() {
  Desktop desktop;
  if (auto* connection = xConnection()) desktop = desktopOnX(connection);
  if (desktop.monitors.empty()) desktop = desktopByScreens();
  if (const auto wayland = waylandOutputs()) takeOver(*wayland, desktop);
  for (auto& monitor : desktop.monitors) {
    if (monitor.edid.maker.empty()) monitor.edid = edidFromKernel(monitor.connector);
    monitor.name = nameOf(monitor);
  }
  identify(desktop.monitors);
  return desktop;
}

}  // namespace touchpanel

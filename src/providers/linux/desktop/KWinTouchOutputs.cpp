#include "providers/linux/desktop/KWinTouchOutputs.h"

#include <memory>
#include <string_view>

#include <gio/gio.h>

namespace touchpanel {

namespace {
constexpr char kService[] = "org.kde.KWin";
constexpr char kDevices[] = "/org/kde/KWin/InputDevice";
constexpr char kDevice[] = "org.kde.KWin.InputDevice";
constexpr char kDeviceManager[] = "org.kde.KWin.InputDeviceManager";
constexpr int kTimeoutMs = 2000;

struct Unref {
  void operator()(GVariant* value) const { g_variant_unref(value); }
  void operator()(GDBusConnection* bus) const { g_object_unref(bus); }
};
using Variant = std::unique_ptr<GVariant, Unref>;

/// A connection of its own: with the one that GLib shares, the end of the bus would end the process.
std::unique_ptr<GDBusConnection, Unref> sessionBus() {
  const std::unique_ptr<char, decltype(&g_free)> address(
      g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr), &g_free);
  if (!address) return nullptr;
  constexpr auto kFlags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                            G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
  return std::unique_ptr<GDBusConnection, Unref>(
      g_dbus_connection_new_for_address_sync(address.get(), kFlags, nullptr, nullptr, nullptr));
}

/// A call of org.freedesktop.DBus.Properties; null when it fails. Starts nothing.
Variant call(GDBusConnection& bus, const std::string& path, const char* method, GVariant* arguments) {
  return Variant(g_dbus_connection_call_sync(&bus, kService, path.c_str(), "org.freedesktop.DBus.Properties",
                                             method, arguments, nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START,
                                             kTimeoutMs, nullptr, nullptr));
}

Variant get(GDBusConnection& bus, const std::string& path, const char* interface, const char* name,
            const GVariantType* type) {
  const auto reply = call(bus, path, "Get", g_variant_new("(ss)", interface, name));
  if (!reply || !g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(v)"))) return nullptr;
  GVariant* value = nullptr;
  g_variant_get(reply.get(), "(v)", &value);
  Variant held(value);
  return g_variant_is_of_type(value, type) ? std::move(held) : nullptr;
}

bool isTouchDevice(GDBusConnection& bus, const std::string& path, const std::string& name) {
  const auto called = get(bus, path, kDevice, "name", G_VARIANT_TYPE_STRING);
  const auto touch = get(bus, path, kDevice, "touch", G_VARIANT_TYPE_BOOLEAN);
  return called && touch && std::string_view(g_variant_get_string(called.get(), nullptr)).starts_with(name) &&
         g_variant_get_boolean(touch.get()) != FALSE;
}

void set(GDBusConnection& bus, const std::string& path, const std::string& output) {
  const auto held = get(bus, path, kDevice, "outputName", G_VARIANT_TYPE_STRING);
  if (!held || g_variant_get_string(held.get(), nullptr) == output) return;
  call(bus, path, "Set", g_variant_new("(ssv)", kDevice, "outputName", g_variant_new_string(output.c_str())));
}
}  // namespace

void KWinTouchOutputs::assign(const std::string& name, const Monitor& monitor) {
  const auto bus = sessionBus();
  if (!bus) return;
  const auto all = get(*bus, kDevices, kDeviceManager, "devicesSysNames", G_VARIANT_TYPE_STRING_ARRAY);
  if (!all) return;
  GVariantIter each;
  g_variant_iter_init(&each, all.get());
  const char* device = nullptr;
  while (g_variant_iter_loop(&each, "&s", &device)) {
    const auto path = std::string(kDevices) + '/' + device;
    if (isTouchDevice(*bus, path, name)) set(*bus, path, monitor.connector);
  }
}

}  // namespace touchpanel

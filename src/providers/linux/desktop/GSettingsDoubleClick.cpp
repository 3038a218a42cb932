#include "providers/linux/desktop/GSettingsDoubleClick.h"

#include <gio/gio.h>

namespace touchpanel {

namespace {
constexpr char kSchema[] = "org.gnome.desktop.peripherals.mouse";
constexpr char kKey[] = "double-click";

/// Asked first: GLib ends the process when a schema or a key is not there.
bool isThere() {
  auto* source = g_settings_schema_source_get_default();
  if (!source) return false;
  auto* schema = g_settings_schema_source_lookup(source, kSchema, TRUE);
  if (!schema) return false;
  const bool hasKey = g_settings_schema_has_key(schema, kKey) != FALSE;
  g_settings_schema_unref(schema);
  return hasKey;
}
}  // namespace

LibraryInUse glibInUse() {
  return {.name = "GLib",
          .licence = "GNU LGPL 2.1 or later",
          .version = versionText(glib_major_version, glib_minor_version, glib_micro_version)};
}

void GSettingsDoubleClick::Unref::operator()(_GSettings* settings) const { g_object_unref(settings); }

GSettingsDoubleClick::GSettingsDoubleClick() {
  if (isThere()) settings_.reset(g_settings_new(kSchema));
}

GSettingsDoubleClick::~GSettingsDoubleClick() = default;

std::optional<std::chrono::milliseconds> GSettingsDoubleClick::time() const {
  if (!settings_) return std::nullopt;
  return std::chrono::milliseconds(g_settings_get_int(settings_.get(), kKey));
}

bool GSettingsDoubleClick::setTime(std::chrono::milliseconds time) {
  return settings_ && g_settings_set_int(settings_.get(), kKey, static_cast<int>(time.count())) != FALSE;
}

}  // namespace touchpanel

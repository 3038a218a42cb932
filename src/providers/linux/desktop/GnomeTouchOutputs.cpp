#include "providers/linux/desktop/GnomeTouchOutputs.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>

#include <gio/gio.h>

namespace touchpanel {

namespace {
constexpr char kSchema[] = "org.gnome.desktop.peripherals.touchscreen";
constexpr char kKey[] = "output";

/// Asked first: GLib ends the process when a schema is not there.
bool isThere() {
  auto* source = g_settings_schema_source_get_default();
  auto* schema = source ? g_settings_schema_source_lookup(source, kSchema, TRUE) : nullptr;
  if (!schema) return false;
  g_settings_schema_unref(schema);
  return true;
}

std::string lineOf(const std::filesystem::path& file) {
  std::string line;
  std::getline(std::ifstream(file), line);
  return line;
}

/// "vendor:product" of the input devices of that name, as the kernel has them.
std::set<std::string> productsOf(const std::string& name) {
  std::set<std::string> products;
  std::error_code none;
  for (const auto& entry : std::filesystem::directory_iterator("/sys/class/input", none)) {
    const auto device = entry.path() / "device";
    if (lineOf(device / "name").starts_with(name))
      products.insert(lineOf(device / "id/vendor") + ':' + lineOf(device / "id/product"));
  }
  return products;
}

void set(const std::string& product, const Monitor::Edid& edid) {
  const auto path = "/org/gnome/desktop/peripherals/touchscreens/" + product + '/';
  const std::unique_ptr<GSettings, decltype(&g_object_unref)> settings(
      g_settings_new_with_path(kSchema, path.c_str()), &g_object_unref);
  const std::array<const char*, 4> wanted{edid.maker.c_str(), edid.model.c_str(), edid.serial.c_str(),
                                          nullptr};
  const std::unique_ptr<char*, decltype(&g_strfreev)> held(g_settings_get_strv(settings.get(), kKey),
                                                           &g_strfreev);
  if (!g_strv_equal(held.get(), wanted.data())) g_settings_set_strv(settings.get(), kKey, wanted.data());
}
}  // namespace

void GnomeTouchOutputs::assign(const std::string& name, const Monitor& monitor) {
  if (monitor.edid.maker.empty() || !isThere()) return;
  for (const auto& product : productsOf(name)) set(product, monitor.edid);
}

}  // namespace touchpanel

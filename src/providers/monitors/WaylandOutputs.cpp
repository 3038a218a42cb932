#include "providers/monitors/WaylandOutputs.h"

#include <algorithm>
#include <cstdlib>
#include <list>
#include <memory>
#include <string_view>

#include <wayland-client.h>

namespace touchpanel {

namespace {
/// From this version on an output says its name.
constexpr std::uint32_t kVersionWithName = 4;

struct Disconnect {
  void operator()(wl_display* display) const { wl_display_disconnect(display); }
};
struct DestroyRegistry {
  void operator()(wl_registry* registry) const { wl_registry_destroy(registry); }
};
struct DestroyOutput {
  void operator()(wl_output* output) const { wl_output_destroy(output); }
};

struct Bound {
  std::unique_ptr<wl_output, DestroyOutput> output;
  std::string name;
  WaylandOutputs::Output is;
};

/// The protocol counts quarter turns against the clock; a mirrored output is taken as its turn alone.
std::int32_t turnOf(std::int32_t transform) { return (4 - (transform & 3)) % 4; }

void geometry(void* data, wl_output* /*output*/, std::int32_t /*x*/, std::int32_t /*y*/, std::int32_t widthMm,
              std::int32_t heightMm, std::int32_t /*subpixel*/, const char* /*make*/, const char* /*model*/,
              std::int32_t transform) {
  static_cast<Bound*>(data)->is = {turnOf(transform), widthMm, heightMm};
}
void name(void* data, wl_output* /*output*/, const char* text) { static_cast<Bound*>(data)->name = text; }

constexpr wl_output_listener kOutputListener = {
    .geometry = geometry,
    .mode = [](void*, wl_output*, std::uint32_t, std::int32_t, std::int32_t, std::int32_t) {},
    .done = [](void*, wl_output*) {},
    .scale = [](void*, wl_output*, std::int32_t) {},
    .name = name,
    .description = [](void*, wl_output*, const char*) {}};

struct Collected {
  std::list<Bound> bound;  ///< listeners keep pointers to these
  WaylandOutputs is;
};

/// Compositors are told apart by what only they offer.
void noteCompositor(std::string_view interface, WaylandOutputs& outputs) {
  if (interface.starts_with("weston_")) outputs.placesPointers = outputs.placesTouches = true;
  if (interface == "gtk_shell1" || interface == "org_kde_plasma_shell") outputs.placesTouches = true;
}

void global(void* data, wl_registry* registry, std::uint32_t id, const char* interface,
            std::uint32_t version) {
  auto& collected = *static_cast<Collected*>(data);
  noteCompositor(interface, collected.is);
  if (std::string_view(interface) != wl_output_interface.name || version < kVersionWithName) return;
  auto& bound = collected.bound.emplace_back();
  bound.output.reset(
      static_cast<wl_output*>(wl_registry_bind(registry, id, &wl_output_interface, kVersionWithName)));
  wl_output_add_listener(bound.output.get(), &kOutputListener, &bound);
}

constexpr wl_registry_listener kRegistryListener = {
    .global = global, .global_remove = [](void*, wl_registry*, std::uint32_t) {}};
}  // namespace

std::optional<WaylandOutputs> waylandOutputs() {
  if (std::getenv("WAYLAND_DISPLAY") == nullptr) return std::nullopt;
  const std::unique_ptr<wl_display, Disconnect> display(wl_display_connect(nullptr));
  if (!display) return std::nullopt;
  Collected collected;
  const std::unique_ptr<wl_registry, DestroyRegistry> registry(wl_display_get_registry(display.get()));
  wl_registry_add_listener(registry.get(), &kRegistryListener, &collected);
  // The first one brings the outputs, the second what they say.
  for (int trip = 0; trip < 2; ++trip)
    if (wl_display_roundtrip(display.get()) < 0) return std::nullopt;
  for (const auto& [output, name, is] : collected.bound)
    if (!name.empty()) collected.is.outputs[name] = is;
  collected.bound.clear();
  return collected.is;
}

}  // namespace touchpanel

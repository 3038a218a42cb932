#include "providers/monitors/XMonitors.h"

#include <cstdlib>
#include <memory>
#include <span>
#include <string_view>

#include <xcb/randr.h>

#include "platform/EdidReading.h"

namespace touchpanel {

namespace {
struct Free {
  void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
std::unique_ptr<Reply, Free> owned(Reply* reply) {
  return std::unique_ptr<Reply, Free>(reply);
}

/// RANDR counts quarter turns against the clock: 90 degrees is "left".
std::int32_t turnOf(std::uint16_t rotation) {
  if ((rotation & XCB_RANDR_ROTATION_ROTATE_90) != 0) return 3;
  if ((rotation & XCB_RANDR_ROTATION_ROTATE_180) != 0) return 2;
  return (rotation & XCB_RANDR_ROTATION_ROTATE_270) != 0 ? 1 : 0;
}

class Randr {
 public:
  Randr(xcb_connection_t* connection, xcb_window_t root)
      : connection_(connection),
        resources_(owned(xcb_randr_get_screen_resources_current_reply(
            connection, xcb_randr_get_screen_resources_current(connection, root), nullptr))),
        primary_(owned(xcb_randr_get_output_primary_reply(
            connection, xcb_randr_get_output_primary(connection, root), nullptr))) {
    constexpr std::string_view kName = "EDID";
    const auto atom = owned(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 1, kName.size(), kName.data()), nullptr));
    if (atom) edid_ = atom->atom;
  }

  std::vector<Monitor> monitors() const {
    std::vector<Monitor> found;
    if (!resources_) return found;
    const std::span outputs(
        xcb_randr_get_screen_resources_current_outputs(resources_.get()),
        static_cast<std::size_t>(xcb_randr_get_screen_resources_current_outputs_length(resources_.get())));
    for (const auto output : outputs) add(output, found);
    return found;
  }

 private:
  void add(xcb_randr_output_t output, std::vector<Monitor>& found) const {
    const auto time = resources_->config_timestamp;
    const auto info = owned(xcb_randr_get_output_info_reply(
        connection_, xcb_randr_get_output_info(connection_, output, time), nullptr));
    if (!info || info->crtc == XCB_NONE) return;
    const auto crtc = owned(xcb_randr_get_crtc_info_reply(
        connection_, xcb_randr_get_crtc_info(connection_, info->crtc, time), nullptr));
    if (!crtc || crtc->width == 0 || crtc->height == 0) return;
    Monitor monitor;
    monitor.connector.assign(
        reinterpret_cast<const char*>(xcb_randr_get_output_info_name(info.get())),  // bytes of a text
        static_cast<std::size_t>(xcb_randr_get_output_info_name_length(info.get())));
    monitor.edid = edidOf(output);
    monitor.area = {crtc->x, crtc->y, crtc->width, crtc->height};
    monitor.turn = turnOf(crtc->rotation);
    monitor.widthMm = static_cast<std::int32_t>(info->mm_width);
    monitor.heightMm = static_cast<std::int32_t>(info->mm_height);
    monitor.isPrimary = primary_ && primary_->output == output;
    found.push_back(std::move(monitor));
  }

  Monitor::Edid edidOf(xcb_randr_output_t output) const {
    constexpr std::uint32_t kBlockWords = 128 / 4;
    if (edid_ == XCB_NONE) return {};
    const auto property = owned(xcb_randr_get_output_property_reply(
        connection_,
        xcb_randr_get_output_property(connection_, output, edid_, XCB_ATOM_ANY, 0, kBlockWords, 0, 0),
        nullptr));
    if (!property || property->format != 8) return {};
    return readEdid({xcb_randr_get_output_property_data(property.get()),
                     static_cast<std::size_t>(xcb_randr_get_output_property_data_length(property.get()))});
  }

  xcb_connection_t* connection_;
  std::unique_ptr<xcb_randr_get_screen_resources_current_reply_t, Free> resources_;
  std::unique_ptr<xcb_randr_get_output_primary_reply_t, Free> primary_;
  xcb_atom_t edid_ = XCB_NONE;
};
}  // namespace

Desktop desktopOnX(xcb_connection_t* connection) {
  const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
  Desktop desktop;
  // Not the size that the connection was set up with: the root window grows and shrinks.
  const auto size = owned(xcb_get_geometry_reply(connection, xcb_get_geometry(connection, root), nullptr));
  const auto* randr = xcb_get_extension_data(connection, &xcb_randr_id);
  if (!size || randr == nullptr || randr->present == 0) return desktop;
  desktop.width = size->width;
  desktop.height = size->height;
  desktop.monitors = Randr(connection, root).monitors();
  return desktop;
}

bool isLayoutEvent(xcb_connection_t* connection, const xcb_generic_event_t& event) {
  constexpr std::uint8_t kSentByClient = 0x80;
  const auto* randr = xcb_get_extension_data(connection, &xcb_randr_id);
  if (randr == nullptr || randr->present == 0) return false;
  const int type = event.response_type & ~kSentByClient;
  return type == randr->first_event + XCB_RANDR_SCREEN_CHANGE_NOTIFY ||
         type == randr->first_event + XCB_RANDR_NOTIFY;
}

}  // namespace touchpanel

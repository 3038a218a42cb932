#include "touchdriverd/RequestGate.h"

#include <cerrno>
#include <cstdint>
#include <cstring>

#include <systemd/sd-bus.h>

#include "providers/linux/dbus/BusNames.h"

namespace touchpanel::driver {

namespace {
constexpr std::size_t kOverhead = 4;  // of a string's length, an array's, or a variant's type

/// sdbus-c++ has no filters; what it wraps has.
struct Wrapped : sdbus::Message {
  static sd_bus* busOf(const sdbus::Message& message) {
    return sd_bus_message_get_bus(static_cast<sd_bus_message*>(message.*(&Wrapped::msg_)));
  }
};

class Walk {
 public:
  explicit Walk(sd_bus_message* message) : message_(message) {}

  /// Reads the rest of the message or container; false as soon as it goes beyond the limits.
  bool rest(int depth) {  // NOLINT(misc-no-recursion): as deep as the limit
    if (depth > kDeepestRequest) return false;
    for (;;) {
      char type = 0;
      const char* contents = nullptr;
      const int found = sd_bus_message_peek_type(message_, &type, &contents);
      if (found <= 0) return found == 0;
      if (!one(type, contents, depth)) return false;
    }
  }

 private:
  bool one(char type, const char* contents, int depth) {  // NOLINT(misc-no-recursion)
    switch (type) {
      case SD_BUS_TYPE_ARRAY:
      case SD_BUS_TYPE_VARIANT:
      case SD_BUS_TYPE_DICT_ENTRY:
        return spend(kOverhead) && sd_bus_message_enter_container(message_, type, contents) > 0 &&
               rest(depth + 1) && sd_bus_message_exit_container(message_) > 0;
      case SD_BUS_TYPE_STRING: {
        const char* text = nullptr;
        return sd_bus_message_read_basic(message_, type, &text) > 0 && spend(kOverhead + std::strlen(text));
      }
      case SD_BUS_TYPE_BOOLEAN:
      case SD_BUS_TYPE_BYTE:
      case SD_BUS_TYPE_INT32:
      case SD_BUS_TYPE_UINT32:
      case SD_BUS_TYPE_INT64:
      case SD_BUS_TYPE_DOUBLE: {
        std::uint64_t widest = 0;
        return sd_bus_message_read_basic(message_, type, &widest) > 0 &&
               spend(type == SD_BUS_TYPE_BYTE ? 1 : sizeof widest);
      }
      default:
        return false;
    }
  }
  bool spend(std::size_t bytes) {
    if (bytes > left_) return false;
    left_ -= bytes;
    return true;
  }

  sd_bus_message* message_;
  std::size_t left_ = kLargestRequest;
};

int pass(sd_bus_message* message, void*, sd_bus_error* error) {
  if (sd_bus_message_is_method_call(message, nullptr, nullptr) <= 0) return 0;
  if (Walk(message).rest(0)) return sd_bus_message_rewind(message, 1) < 0 ? -EINVAL : 0;
  return sd_bus_error_set(error, bus_name::kBadArgumentError,
                          "The request is too large, too deep, or has arguments of other types.");
}
}  // namespace

RequestGate::RequestGate(sdbus::IConnection& connection) {
  // Any message knows its connection.
  const auto proxy = sdbus::createProxy(connection, "org.freedesktop.DBus", "/org/freedesktop/DBus");
  const auto message = proxy->createMethodCall("org.freedesktop.DBus", "GetId");
  sd_bus_slot* slot = nullptr;
  const int result = sd_bus_add_filter(Wrapped::busOf(message), &slot, pass, nullptr);
  if (result < 0) throw sdbus::Error("org.freedesktop.DBus.Error.NoMemory", std::strerror(-result));
  filter_.reset(slot);
}

void RequestGate::Remove::operator()(sd_bus_slot* slot) const { sd_bus_slot_unref(slot); }

}  // namespace touchpanel::driver

#include "app/CellText.h"

#include <cstdio>

#include "discovery/DeviceEntry.h"

namespace touchpanel {

std::string cellText(std::string_view key, const Value& value) {
  if (key == entry_key::kLocationID) {
    char text[sizeof "0x00000000"];
    std::snprintf(text, sizeof text, "0x%08x", static_cast<std::uint32_t>(value.integer()));
    return text;
  }
  if (const auto* text = value.get<std::string>()) return *text;
  return value.isNumber() ? std::to_string(value.longInteger()) : std::string();
}

}  // namespace touchpanel

#include "app/CellText.h"

#include "discovery/DeviceEntry.h"
#include "platform/HexText.h"
#include "platform/ShowableText.h"

namespace touchpanel {

std::string cellText(std::string_view key, const Value& value) {
  if (key == entry_key::kLocationID) return "0x" + hexText(value.integer());
  if (const auto* text = value.get<std::string>()) return showableText(*text);
  return value.isNumber() ? std::to_string(value.longInteger()) : std::string();
}

}  // namespace touchpanel

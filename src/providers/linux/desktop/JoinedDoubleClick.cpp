#include "providers/linux/desktop/JoinedDoubleClick.h"

#include "contract/DriverProperties.h"

namespace touchpanel {

std::optional<Dictionary> JoinedDoubleClick::properties(RegistryObject object) {
  auto properties = service_.properties(object);
  if (!properties) return properties;
  const auto* parameters = properties->dictionary(property::kHidParameters);
  const auto time = desktop_.time();
  if (!parameters || !time) return properties;
  auto joined = *parameters;
  joined.set(property::kHidClickTime, std::int64_t{std::chrono::nanoseconds(*time).count()});
  properties->set(property::kHidParameters, std::move(joined));
  return properties;
}

Status JoinedDoubleClick::setProperty(RegistryObject object, std::string_view name, const Value& value) {
  const auto status = service_.setProperty(object, name, value);
  if (status != kSuccess || name != property::kHidClickTime) return status;
  desktop_.setTime(
      std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::nanoseconds(value.longInteger())));
  return status;
}

}  // namespace touchpanel

#include "driver/HidSystem.h"

#include <optional>

#include "contract/DriverProperties.h"

namespace touchpanel::driver {

namespace {
constexpr std::chrono::nanoseconds kLongestClickTime =
    std::chrono::milliseconds(configration_limit::kMaximumTimeMs);

std::optional<std::int64_t> integerWithin(const Value& value, std::int64_t maximum) {
  if (!value.get<std::int32_t>() && !value.get<std::int64_t>()) return std::nullopt;
  const auto integer = value.longInteger();
  if (integer < 0 || integer > maximum) return std::nullopt;
  return integer;
}
}  // namespace

Status HidSystem::setProperty(std::string_view name, const Value& value) {
  if (name == property::kHidClickTime) {
    const auto time = integerWithin(value, kLongestClickTime.count());
    if (!time) return kErrorBadArgument;
    clickTime_ = std::chrono::nanoseconds(*time);
    return kSuccess;
  }
  if (name != property::kHidClickSpace) return kErrorUnsupported;
  const auto* space = value.get<Array>();
  if (!space || space->size() != 2) return kErrorBadArgument;
  const auto x = integerWithin((*space)[0], configration_limit::kMaximumArea);
  const auto y = integerWithin((*space)[1], configration_limit::kMaximumArea);
  if (!x || !y) return kErrorBadArgument;
  clickSpaceX_ = static_cast<std::int32_t>(*x);
  clickSpaceY_ = static_cast<std::int32_t>(*y);
  return kSuccess;
}

Dictionary HidSystem::properties() const {
  return {{property::kHidParameters,
           Dictionary{{property::kHidClickTime, static_cast<std::int64_t>(clickTime_.count())},
                      {property::kHidClickSpace, Array{clickSpaceX_, clickSpaceY_}}}}};
}

}  // namespace touchpanel::driver

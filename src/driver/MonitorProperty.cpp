#include "driver/MonitorProperty.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "driver/PropertyField.h"

namespace touchpanel::driver {

namespace {
using namespace monitor_key;
using namespace monitor_limit;

using Field = PropertyField<MonitorPlacement, std::int32_t, std::string>;
constexpr auto kFields =
    std::to_array<Field>({{kIdentity, &MonitorPlacement::identity, {0, kMaximumTextBytes}},
                          {kName, &MonitorPlacement::name, {0, kMaximumTextBytes}},
                          {kWidthMm, &MonitorPlacement::widthMm, {0, kMaximumSizeMm}},
                          {kHeightMm, &MonitorPlacement::heightMm, {0, kMaximumSizeMm}}});

using PartField = PropertyField<DesktopPart, std::int32_t>;
constexpr auto kPointerFields = std::to_array<PartField>({{kMinX, &DesktopPart::minX, {0, kLogicalMaximum}},
                                                          {kMinY, &DesktopPart::minY, {0, kLogicalMaximum}},
                                                          {kMaxX, &DesktopPart::maxX, {0, kLogicalMaximum}},
                                                          {kMaxY, &DesktopPart::maxY, {0, kLogicalMaximum}},
                                                          {kTurn, &DesktopPart::turn, {0, kMaximumTurn}}});
constexpr auto kTouchFields =
    std::to_array<PartField>({{kTouchMinX, &DesktopPart::minX, {0, kLogicalMaximum}},
                              {kTouchMinY, &DesktopPart::minY, {0, kLogicalMaximum}},
                              {kTouchMaxX, &DesktopPart::maxX, {0, kLogicalMaximum}},
                              {kTouchMaxY, &DesktopPart::maxY, {0, kLogicalMaximum}},
                              {kTouchTurn, &DesktopPart::turn, {0, kMaximumTurn}}});

/// A part is judged as a whole: a new lower bound may be valid only together with the new upper bound.
bool keepIfEmpty(DesktopPart& part, const DesktopPart& before) {
  if (hasExtent(part)) return false;
  part = before;
  return true;
}
}  // namespace

Status write(MonitorPlacement& placement, const Dictionary& dictionary) {
  auto candidate = placement;
  if (!writeAcceptable(candidate, dictionary)) return kErrorBadArgument;
  placement = std::move(candidate);
  return kSuccess;
}

bool writeAcceptable(MonitorPlacement& placement, const Dictionary& dictionary) {
  bool all = true;
  const auto before = placement;
  for (const auto& [key, value] : dictionary)
    all = (writeField(kFields, placement, key, value) ||
           writeField(kPointerFields, placement.pointer, key, value) ||
           writeField(kTouchFields, placement.touch, key, value)) &&
          all;
  if (keepIfEmpty(placement.pointer, before.pointer)) all = false;
  if (keepIfEmpty(placement.touch, before.touch)) all = false;
  return all;
}

Dictionary toDictionary(const MonitorPlacement& placement) {
  Dictionary dictionary;
  for (const auto& field : kFields) dictionary.set(field.key, field.read(placement));
  for (const auto& field : kPointerFields) dictionary.set(field.key, field.read(placement.pointer));
  for (const auto& field : kTouchFields) dictionary.set(field.key, field.read(placement.touch));
  return dictionary;
}

}  // namespace touchpanel::driver

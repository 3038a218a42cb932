#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <variant>

#include "contract/CalibrationParameters.h"
#include "platform/Status.h"
#include "platform/Value.h"

namespace touchpanel::driver {

/// The integers that a field takes, bounds included; of a text its length in bytes.
struct FieldRange {
  std::int32_t minimum = 0;
  std::int32_t maximum = std::numeric_limits<std::int32_t>::max();
};

// Each puts `value` into `member`; false, with `member` unchanged, for another type, size or range. Integers
// of either width are taken; a boolean is no integer and an integer no boolean.
inline bool writeMember(std::int32_t& member, const Value& value, FieldRange range) {
  if (!value.get<std::int32_t>() && !value.get<std::int64_t>()) return false;
  const auto wide = value.longInteger();
  if (wide < range.minimum || wide > range.maximum) return false;
  member = static_cast<std::int32_t>(wide);
  return true;
}
inline bool writeMember(bool& member, const Value& value, FieldRange) {
  const auto* boolean = value.get<bool>();
  if (boolean) member = *boolean;
  return boolean;
}
inline bool writeMember(std::string& member, const Value& value, FieldRange range) {
  const auto* text = value.get<std::string>();
  if (!text || text->size() > static_cast<std::size_t>(range.maximum)) return false;
  member = *text;
  return true;
}
inline bool writeMember(_CALIB_PARAMS& member, const Value& value, FieldRange) {
  const auto* bytes = value.get<Bytes>();
  if (!bytes || bytes->size() != kCalibParamsSize) return false;
  copyImage(*bytes, member);
  return true;
}

inline Value readMember(std::int32_t member) { return member; }
inline Value readMember(bool member) { return member; }
inline Value readMember(const std::string& member) { return member; }
inline Value readMember(const _CALIB_PARAMS& member) {
  const auto image = imageOf(member);
  return Bytes(image.begin(), image.end());
}

/// One key of a property dictionary, the member of `Record` that holds it (of one of the types `Members`),
/// and what may be written to it.
template <typename Record, typename... Members>
struct PropertyField {
  std::string_view key;
  std::variant<Members Record::*...> member;
  FieldRange range{};

  bool write(Record& record, const Value& value) const {
    return std::visit([&](auto pointer) { return writeMember(record.*pointer, value, range); }, member);
  }
  Value read(const Record& record) const {
    return std::visit([&](auto pointer) { return readMember(record.*pointer); }, member);
  }
};

/// Whether a record's area has an extent on both axes.
template <typename Area>
bool hasExtent(const Area& area) {
  return area.minX < area.maxX && area.minY < area.maxY;
}

/// Writes the field that `key` names; false when there is none or it does not take `value`.
template <typename Fields, typename Record>
bool writeField(const Fields& fields, Record& record, std::string_view key, const Value& value) {
  for (const auto& field : fields)
    if (field.key == key) return field.write(record, value);
  return false;
}

}  // namespace touchpanel::driver

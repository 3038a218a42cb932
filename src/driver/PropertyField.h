#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string_view>
#include <variant>

#include "platform/Status.h"
#include "platform/Value.h"
#include "protocol/DeviceContext.h"

namespace touchpanel::driver {

/// One key of a property dictionary, the member of `Record` that holds it, and what may be written to it.
template <typename Record>
struct PropertyField {
  std::string_view key;
  std::variant<std::int32_t Record::*, bool Record::*, _CALIB_PARAMS Record::*> member;
  std::int32_t minimum = 0;
  std::int32_t maximum = std::numeric_limits<std::int32_t>::max();

  /// Puts `value` into `record`. False, with `record` unchanged, for another type, size or range. Integers of
  /// either width are taken; a boolean is no integer and an integer no boolean.
  bool write(Record& record, const Value& value) const {
    if (const auto* integer = std::get_if<std::int32_t Record::*>(&member)) {
      if (!value.get<std::int32_t>() && !value.get<std::int64_t>()) return false;
      const auto wide = value.longInteger();
      if (wide < minimum || wide > maximum) return false;
      record.*(*integer) = static_cast<std::int32_t>(wide);
      return true;
    }
    if (const auto* boolean = std::get_if<bool Record::*>(&member)) {
      if (!value.get<bool>()) return false;
      record.*(*boolean) = *value.get<bool>();
      return true;
    }
    const auto* bytes = value.get<Bytes>();
    if (!bytes || bytes->size() != kCalibParamsSize) return false;
    copyImage(*bytes, record.*std::get<_CALIB_PARAMS Record::*>(member));
    return true;
  }

  Value read(const Record& record) const {
    if (const auto* integer = std::get_if<std::int32_t Record::*>(&member)) return record.*(*integer);
    if (const auto* boolean = std::get_if<bool Record::*>(&member)) return record.*(*boolean);
    const auto image = imageOf(record.*std::get<_CALIB_PARAMS Record::*>(member));
    return Bytes(image.begin(), image.end());
  }
};

template <typename Record>
const PropertyField<Record>* fieldFor(std::span<const PropertyField<Record>> fields, std::string_view key) {
  for (const auto& field : fields)
    if (field.key == key) return &field;
  return nullptr;
}

/// Writes every entry of `dictionary` into `record`; kErrorBadArgument, with `record` half written, as soon
/// as one has an unknown key or is refused. Call it on a copy.
template <typename Record>
Status writeAll(std::span<const PropertyField<Record>> fields, const Dictionary& dictionary, Record& record) {
  for (const auto& [key, value] : dictionary) {
    const auto* field = fieldFor(fields, key);
    if (!field || !field->write(record, value)) return kErrorBadArgument;
  }
  return kSuccess;
}

}  // namespace touchpanel::driver

#include "platform/Value.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace touchpanel {

AbsentValue::AbsentValue(std::string_view key)
    : std::runtime_error("no value to store under \"" + std::string(key) + "\"") {}

Dictionary::Dictionary(std::initializer_list<Entry> entries) {
  for (const auto& [key, value] : entries) set(key, value);
}

void Dictionary::set(std::string_view key, Value value) {
  for (auto& entry : entries_) {
    if (entry.first == key) {
      entry.second = std::move(value);
      return;
    }
  }
  entries_.emplace_back(std::string(key), std::move(value));
}

void Dictionary::setCopy(std::string_view key, const Value* value) {
  if (value == nullptr) throw AbsentValue(key);
  set(key, Value(*value));
}

const Value* Dictionary::find(std::string_view key) const {
  const auto found =
      std::find_if(entries_.begin(), entries_.end(), [&](const Entry& e) { return e.first == key; });
  return found == entries_.end() ? nullptr : &found->second;
}

void Dictionary::remove(std::string_view key) {
  std::erase_if(entries_, [&](const Entry& e) { return e.first == key; });
}

std::int32_t Dictionary::integer(std::string_view key) const {
  const Value* value = find(key);
  return value == nullptr ? 0 : value->integer();
}

std::int64_t Dictionary::longInteger(std::string_view key) const {
  const Value* value = find(key);
  return value == nullptr ? 0 : value->longInteger();
}

bool Dictionary::boolean(std::string_view key) const {
  const Value* value = find(key);
  return value != nullptr && value->boolean();
}

std::string Dictionary::text(std::string_view key) const {
  const Value* value = find(key);
  const auto* text = value == nullptr ? nullptr : value->get<std::string>();
  return text == nullptr ? std::string() : *text;
}

const Bytes* Dictionary::bytes(std::string_view key) const {
  const Value* value = find(key);
  return value == nullptr ? nullptr : value->get<Bytes>();
}

const Array* Dictionary::array(std::string_view key) const {
  const Value* value = find(key);
  return value == nullptr ? nullptr : value->get<Array>();
}

const Dictionary* Dictionary::dictionary(std::string_view key) const {
  const Value* value = find(key);
  return value == nullptr ? nullptr : value->get<Dictionary>();
}

namespace {

std::int64_t truncated(double value) {
  if (std::isnan(value)) return 0;
  // 2^63 is exact in double; everything from there on does not fit.
  constexpr double limit = 9223372036854775808.0;
  if (value >= limit) return std::numeric_limits<std::int64_t>::max();
  if (value < -limit) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(value);
}

}  // namespace

bool Value::isNumber() const { return storage_.index() <= 3; }

std::int64_t Value::longInteger() const {
  if (const auto* value = get<bool>()) return *value ? 1 : 0;
  if (const auto* value = get<std::int32_t>()) return *value;
  if (const auto* value = get<std::int64_t>()) return *value;
  if (const auto* value = get<double>()) return truncated(*value);
  return 0;
}

std::int32_t Value::integer() const {
  if (const auto* value = get<double>()) {
    const auto clamped = std::clamp<std::int64_t>(truncated(*value), std::numeric_limits<std::int32_t>::min(),
                                                  std::numeric_limits<std::int32_t>::max());
    return static_cast<std::int32_t>(clamped);
  }
  return static_cast<std::int32_t>(longInteger());
}

bool Value::boolean() const {
  if (const auto* value = get<double>()) return *value != 0.0;
  return longInteger() != 0;
}

}  // namespace touchpanel

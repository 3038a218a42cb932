#include "providers/linux/dbus/BusValue.h"

#include <vector>

namespace touchpanel {

namespace {
struct ToBus {
  template <typename Simple>
  sdbus::Variant operator()(const Simple& value) const {
    return sdbus::Variant(value);
  }
  sdbus::Variant operator()(const Array& array) const {
    std::vector<sdbus::Variant> elements;
    elements.reserve(array.size());
    for (const auto& element : array) elements.push_back(toBus(element));
    return sdbus::Variant(elements);
  }
  sdbus::Variant operator()(const Dictionary& dictionary) const { return sdbus::Variant(toBus(dictionary)); }
};

std::optional<Value> arrayFromBus(const std::vector<sdbus::Variant>& elements) {
  Array array;
  array.reserve(elements.size());
  for (const auto& element : elements) {
    auto value = fromBus(element);
    if (!value) return std::nullopt;
    array.push_back(std::move(*value));
  }
  return Value(std::move(array));
}
}  // namespace

sdbus::Variant toBus(const Value& value) { return std::visit(ToBus(), value.storage()); }

BusDictionary toBus(const Dictionary& dictionary) {
  BusDictionary entries;
  for (const auto& [key, value] : dictionary) entries.emplace(key, toBus(value));
  return entries;
}

std::optional<Value> fromBus(const sdbus::Variant& variant) {
  if (variant.isEmpty()) return std::nullopt;
  const auto type = variant.peekValueType();
  if (type == "b") return Value(variant.get<bool>());
  if (type == "i") return Value(variant.get<std::int32_t>());
  if (type == "x") return Value(variant.get<std::int64_t>());
  if (type == "d") return Value(variant.get<double>());
  if (type == "s") return Value(variant.get<std::string>());
  if (type == "ay") return Value(variant.get<Bytes>());
  if (type == "av") return arrayFromBus(variant.get<std::vector<sdbus::Variant>>());
  if (type != "a{sv}") return std::nullopt;
  auto dictionary = fromBus(variant.get<BusDictionary>());
  if (!dictionary) return std::nullopt;
  return Value(std::move(*dictionary));
}

std::optional<Dictionary> fromBus(const BusDictionary& entries) {
  Dictionary dictionary;
  for (const auto& [key, entry] : entries) {
    auto value = fromBus(entry);
    if (!value) return std::nullopt;
    dictionary.set(key, std::move(*value));
  }
  return dictionary;
}

}  // namespace touchpanel

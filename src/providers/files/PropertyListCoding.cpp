#include "providers/files/PropertyListCoding.h"

#include <cstdlib>
#include <limits>
#include <memory>
#include <new>
#include <utility>
#include <variant>

#include <plist/plist.h>

#include "providers/files/DecodingLimits.h"
#include "providers/files/OpenStepPropertyList.h"
#include "providers/files/XmlPropertyList.h"

namespace touchpanel::files {

namespace {

struct FreeNode {
  void operator()(void* node) const { plist_free(node); }
};
struct FreeMemory {
  void operator()(void* memory) const { std::free(memory); }  // the library's memory comes from malloc
};
using Node = std::unique_ptr<void, FreeNode>;
template <typename T>
using Memory = std::unique_ptr<T, FreeMemory>;

/// Thrown over what the library decodes although no sound writer makes it.
struct NotWellFormed {};

std::optional<Value> valueOf(plist_t node);

Value integerOf(plist_t node) {
  std::uint64_t bits = 0;
  plist_get_uint_val(node, &bits);
  const auto value = static_cast<std::int64_t>(bits);
  if (std::in_range<std::int32_t>(value)) return static_cast<std::int32_t>(value);
  return value;
}

Dictionary dictionaryOf(plist_t node) {
  Dictionary dictionary;
  plist_dict_iter position = nullptr;
  plist_dict_new_iter(node, &position);
  const Memory<void> ownedPosition(position);
  while (true) {
    char* key = nullptr;
    plist_t item = nullptr;
    plist_dict_next_item(node, position, &key, &item);
    const Memory<char> ownedKey(key);
    if (item == nullptr) return dictionary;
    if (key == nullptr || dictionary.contains(key)) throw NotWellFormed();
    if (auto value = valueOf(item)) dictionary.set(key, std::move(*value));
  }
}

Array arrayOf(plist_t node) {
  Array array;
  plist_array_iter position = nullptr;
  plist_array_new_iter(node, &position);
  const Memory<void> ownedPosition(position);
  while (true) {
    plist_t item = nullptr;
    plist_array_next_item(node, position, &item);
    if (item == nullptr) return array;
    if (auto value = valueOf(item)) array.push_back(std::move(*value));
  }
}

std::optional<Value> valueOf(plist_t node) {
  switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
      std::uint8_t value = 0;
      plist_get_bool_val(node, &value);
      return Value(value != 0);
    }
    case PLIST_UINT:
      return integerOf(node);
    case PLIST_REAL: {
      double value = 0;
      plist_get_real_val(node, &value);
      return Value(value);
    }
    case PLIST_STRING: {
      std::uint64_t length = 0;
      const char* text = plist_get_string_ptr(node, &length);
      return Value(text == nullptr ? std::string() : std::string(text, length));
    }
    case PLIST_DATA: {
      std::uint64_t length = 0;
      const char* data = plist_get_data_ptr(node, &length);
      return Value(data == nullptr ? Bytes() : Bytes(data, data + length));
    }
    case PLIST_ARRAY:
      return Value(arrayOf(node));
    case PLIST_DICT:
      return Value(dictionaryOf(node));
    default:
      return std::nullopt;
  }
}

Node nodeOf(const Value& value);

struct NodeMaker {
  plist_t operator()(bool value) const { return plist_new_bool(value ? 1 : 0); }
  plist_t operator()(std::int64_t value) const {
    return plist_new_uint(static_cast<std::uint64_t>(value));  // written with its sign
  }
  plist_t operator()(std::int32_t value) const { return (*this)(std::int64_t{value}); }
  plist_t operator()(double value) const { return plist_new_real(value); }
  plist_t operator()(const std::string& value) const { return plist_new_string(value.c_str()); }
  plist_t operator()(const Bytes& value) const {
    return plist_new_data(reinterpret_cast<const char*>(value.data()), value.size());
  }
  plist_t operator()(const Array& value) const {
    Node node(plist_new_array());
    for (const auto& item : value) plist_array_append_item(node.get(), nodeOf(item).release());
    return node.release();
  }
  plist_t operator()(const Dictionary& value) const {
    Node node(plist_new_dict());
    for (const auto& [key, item] : value)
      plist_dict_set_item(node.get(), key.c_str(), nodeOf(item).release());
    return node.release();
  }
};

Node nodeOf(const Value& value) { return Node(std::visit(NodeMaker(), value.storage())); }

std::optional<Dictionary> decodeBinary(std::string_view file) {
  if (!isDecodable(file)) return std::nullopt;
  plist_t decoded = nullptr;
  plist_from_bin(file.data(), static_cast<std::uint32_t>(file.size()), &decoded);
  const Node root(decoded);
  if (root == nullptr || plist_get_node_type(root.get()) != PLIST_DICT) return std::nullopt;
  try {
    return dictionaryOf(root.get());
  } catch (const NotWellFormed&) {
    return std::nullopt;
  }
}

/// The first character decides, whatever its width and whatever marks the byte order before it.
bool isXml(std::string_view file) {
  constexpr std::string_view kBeforeText("\xEF\xBB\xBF\xFE\xFF\0 \t\r\n", 10);
  const auto first = file.find_first_not_of(kBeforeText);
  return first != std::string_view::npos && file[first] == '<';
}

}  // namespace

std::optional<Dictionary> decodePropertyList(std::string_view file) {
  if (file.size() > kMaximumFileSize) return std::nullopt;
  if (file.starts_with("bplist")) return decodeBinary(file);
  return isXml(file) ? decodeXml(file) : decodeOpenStep(file);
}

std::string encodePropertyList(const Dictionary& contents) {
  const Node root(NodeMaker()(contents));
  char* xml = nullptr;
  std::uint32_t length = 0;
  plist_to_xml(root.get(), &xml, &length);
  if (xml == nullptr) throw std::bad_alloc();
  const Memory<char> owned(xml);
  return {xml, length};
}

}  // namespace touchpanel::files

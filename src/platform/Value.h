#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace touchpanel {

class Value;
using Bytes = std::vector<std::uint8_t>;
using Array = std::vector<Value>;

/// Thrown when an absent value is put into a Dictionary. what() names the key.
class AbsentValue : public std::runtime_error {
 public:
  explicit AbsentValue(std::string_view key);
};

/// Text keys to values, kept in the order in which the keys were first added. Lookup is linear: these
/// dictionaries hold a few dozen keys at the most. Equality compares keys, values and order.
class Dictionary {
 public:
  using Entry = std::pair<std::string, Value>;

  Dictionary() = default;
  Dictionary(std::initializer_list<Entry> entries);

  /// Adds `key`, or replaces its value and keeps its place.
  void set(std::string_view key, Value value);
  /// The same for a value copied from elsewhere. Throws AbsentValue when there is none. A template, so that a
  /// literal 0 is a number here and never a null pointer.
  template <std::same_as<const Value*> Pointer>
  void set(std::string_view key, Pointer value) {
    setCopy(key, value);
  }
  /// The value under `key`, owned by the dictionary and valid until it changes; null when absent.
  const Value* find(std::string_view key) const;
  void remove(std::string_view key);
  bool contains(std::string_view key) const { return find(key) != nullptr; }

  std::size_t size() const;
  bool empty() const;
  std::vector<Entry>::const_iterator begin() const;
  std::vector<Entry>::const_iterator end() const;

  /// Readers that never fail: an absent key or a value of another type reads as 0, false or empty.
  std::int32_t integer(std::string_view key) const;
  std::int64_t longInteger(std::string_view key) const;
  bool boolean(std::string_view key) const;
  std::string text(std::string_view key) const;
  const Bytes* bytes(std::string_view key) const;
  const Array* array(std::string_view key) const;
  const Dictionary* dictionary(std::string_view key) const;

  friend bool operator==(const Dictionary&, const Dictionary&);

 private:
  void setCopy(std::string_view key, const Value* value);

  std::vector<Entry> entries_;
};

/// One value that crosses a port: the types of a property list and of a registry property.
class Value {
 public:
  using Storage =
      std::variant<bool, std::int32_t, std::int64_t, double, std::string, Bytes, Array, Dictionary>;

  // Only a bool is a boolean: a pointer must not slip in as one.
  Value(std::same_as<bool> auto value) : storage_(value) {}  // NOLINT(google-explicit-constructor): a literal
  Value(std::int32_t value) : storage_(value) {}             // NOLINT(google-explicit-constructor)
  Value(std::int64_t value) : storage_(value) {}             // NOLINT(google-explicit-constructor)
  Value(double value) : storage_(value) {}                   // NOLINT(google-explicit-constructor)
  Value(std::string value) : storage_(std::move(value)) {}   // NOLINT(google-explicit-constructor)
  Value(const char* value) : storage_(std::string(value)) {}  // NOLINT(google-explicit-constructor)
  Value(Bytes value) : storage_(std::move(value)) {}          // NOLINT(google-explicit-constructor)
  Value(Array value) : storage_(std::move(value)) {}          // NOLINT(google-explicit-constructor)
  Value(Dictionary value) : storage_(std::move(value)) {}     // NOLINT(google-explicit-constructor)

  /// The held value when it has exactly type T, else null.
  template <typename T>
  const T* get() const {
    return std::get_if<T>(&storage_);
  }
  const Storage& storage() const { return storage_; }

  bool isNumber() const;
  /// A number or boolean as a 32-bit integer: wider integers keep their low 32 bits, reals are truncated
  /// towards zero and clamped; anything else is 0.
  std::int32_t integer() const;
  /// The same as a 64-bit integer.
  std::int64_t longInteger() const;
  /// Whether a number or boolean is non-zero; anything else is false.
  bool boolean() const;

  bool operator==(const Value&) const = default;

 private:
  Storage storage_;
};

// Defined here because they need Value to be complete.
inline std::size_t Dictionary::size() const { return entries_.size(); }
inline bool Dictionary::empty() const { return entries_.empty(); }
inline std::vector<Dictionary::Entry>::const_iterator Dictionary::begin() const { return entries_.begin(); }
inline std::vector<Dictionary::Entry>::const_iterator Dictionary::end() const { return entries_.end(); }
inline bool operator==(const Dictionary& a, const Dictionary& b) { return a.entries_ == b.entries_; }

}  // namespace touchpanel

#include "providers/files/XmlPropertyList.h"

#include <charconv>
#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <expat.h>

#include "providers/files/DecodingLimits.h"

namespace touchpanel::files {

namespace {

bool isSpace(char character) {
  return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && isSpace(text.back())) text.remove_suffix(1);
  return text;
}

template <typename Number, typename... Base>
std::optional<Number> numberIn(std::string_view text, Base... base) {
  Number number{};
  const auto* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, base...);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

std::optional<Value> integerOf(std::string_view text) {
  text = trimmed(text);
  if (text.starts_with('+')) text.remove_prefix(1);
  const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
  const auto number = hexadecimal ? numberIn<std::int64_t>(text.substr(2), 16) : numberIn<std::int64_t>(text);
  if (!number || (hexadecimal && *number < 0)) return std::nullopt;
  if (std::in_range<std::int32_t>(*number)) return Value(static_cast<std::int32_t>(*number));
  return Value(*number);
}

std::optional<Value> realOf(std::string_view text) {
  text = trimmed(text);
  if (text.starts_with('+')) text.remove_prefix(1);
  const auto number = numberIn<double>(text);
  return number ? std::optional<Value>(*number) : std::nullopt;
}

/// 2020-01-01T00:00:00Z
bool isDate(std::string_view text) {
  constexpr std::string_view kPattern = "0000-00-00T00:00:00Z";
  text = trimmed(text);
  if (text.size() != kPattern.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isDigit = text[i] >= '0' && text[i] <= '9';
    if (kPattern[i] == '0' ? !isDigit : text[i] != kPattern[i]) return false;
  }
  return true;
}

/// Base64 with white space anywhere and its padding at the end.
std::optional<Value> dataOf(std::string_view text) {
  constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  Bytes bytes;
  std::uint32_t bits = 0;
  std::size_t digits = 0;
  std::size_t padding = 0;
  for (const char character : text) {
    if (isSpace(character)) continue;
    const auto digit = kDigits.find(character);
    if (character == '=')
      ++padding;
    else if (digit == std::string_view::npos || padding > 0)
      return std::nullopt;
    else if (bits = bits << 6U | static_cast<std::uint32_t>(digit); ++digits % 4 == 0)
      bytes.insert(bytes.end(), {static_cast<std::uint8_t>(bits >> 16U),
                                 static_cast<std::uint8_t>(bits >> 8U), static_cast<std::uint8_t>(bits)});
  }
  if (padding > 2 || (digits + padding) % 4 != 0) return std::nullopt;
  if (digits % 4 == 3) bytes.push_back(static_cast<std::uint8_t>(bits >> 10U));
  if (digits % 4 == 2) bytes.push_back(static_cast<std::uint8_t>(bits >> 4U));
  if (digits % 4 == 3) bytes.push_back(static_cast<std::uint8_t>(bits >> 2U));
  return Value(std::move(bytes));
}

/// Builds the values while the library reports elements and text. Anything that has no business where it stands
/// ends the parsing.
class Builder {
 public:
  Builder() : parser_(XML_ParserCreate(nullptr)) {
    if (!parser_) throw std::bad_alloc();
    XML_SetUserData(parser_.get(), this);
    XML_SetElementHandler(
        parser_.get(),
        [](void* self, const char* name, const char**) { guarded(self, &Builder::begin, name); },
        [](void* self, const char*) { guarded(self, &Builder::end); });
    XML_SetCharacterDataHandler(parser_.get(), [](void* self, const char* text, int length) {
      guarded(self, &Builder::add, std::string_view(text, static_cast<std::size_t>(length)));
    });
    // An entity of the file's own could unfold without bounds, and one that is declared nowhere would vanish.
    XML_SetEntityDeclHandler(parser_.get(),
                             [](void* self, const char*, int, const char*, int, const char*, const char*,
                                const char*, const char*) { static_cast<Builder*>(self)->refuse(); });
    XML_SetSkippedEntityHandler(parser_.get(),
                                [](void* self, const char*, int) { static_cast<Builder*>(self)->refuse(); });
  }

  std::optional<Dictionary> build(std::string_view file) {
    const auto parsed = XML_Parse(parser_.get(), file.data(), static_cast<int>(file.size()), XML_TRUE);
    if (parsed != XML_STATUS_OK || refused_ || !root_ || !root_->get<Dictionary>()) return std::nullopt;
    return *root_->get<Dictionary>();
  }

 private:
  /// An element that is open. Text counts in those that hold no others.
  struct Element {
    std::string name;
    std::string text = {};
    Dictionary dictionary = {};
    Array array = {};
    std::optional<std::string> key = {};  ///< of a dictionary, until its value has come
  };

  /// Nothing may be thrown through the library.
  template <typename... Arguments>
  static void guarded(void* self, void (Builder::*handle)(Arguments...), Arguments... arguments) {
    auto& builder = *static_cast<Builder*>(self);
    try {
      (builder.*handle)(arguments...);
    } catch (const std::bad_alloc&) {
      builder.refuse();
    }
  }

  void refuse() {
    refused_ = true;
    XML_StopParser(parser_.get(), XML_FALSE);
  }

  static bool holdsElements(std::string_view name) {
    return name == "plist" || name == "dict" || name == "array";
  }

  void begin(const char* name) {
    const std::string_view element = name;
    const bool isKey = element == "key";
    if (++count_ > kMaximumValues || open_.size() > kMaximumDepth) return refuse();
    if (open_.empty() ? isKey || hasRoot_ : !mayHold(open_.back(), element)) return refuse();
    open_.push_back({.name = name});
  }

  bool mayHold(const Element& parent, std::string_view element) const {
    if (parent.name == "dict") return (element == "key") != parent.key.has_value() && element != "plist";
    if (parent.name == "plist") return element != "key" && element != "plist" && !hasRoot_;
    return parent.name == "array" && element != "key" && element != "plist";
  }

  void add(std::string_view text) {
    if (!open_.empty() && !holdsElements(open_.back().name))
      open_.back().text += text;
    else if (!trimmed(text).empty())
      refuse();
  }

  void end() {
    Element element = std::move(open_.back());
    open_.pop_back();
    if (element.name == "plist") return;
    if (element.name == "key") {
      auto& dictionary = open_.back();
      if (dictionary.dictionary.contains(element.text)) return refuse();
      dictionary.key = std::move(element.text);
      return;
    }
    if (element.name == "date") return isDate(element.text) ? leaveOut() : refuse();
    auto value = valueOf(element);
    if (!value) return refuse();
    put(std::move(*value));
  }

  static std::optional<Value> valueOf(Element& element) {
    if (element.name == "dict" && !element.key) return Value(std::move(element.dictionary));
    if (element.name == "array") return Value(std::move(element.array));
    if (element.name == "string") return Value(std::move(element.text));
    if (element.name == "integer") return integerOf(element.text);
    if (element.name == "real") return realOf(element.text);
    if (element.name == "data") return dataOf(element.text);
    if (element.name == "true" && element.text.empty()) return Value(true);
    if (element.name == "false" && element.text.empty()) return Value(false);
    return std::nullopt;
  }

  void put(Value value) {
    if (isAtRoot())
      takeRoot(std::move(value));
    else if (open_.back().name == "array")
      open_.back().array.push_back(std::move(value));
    else
      open_.back().dictionary.set(*std::exchange(open_.back().key, std::nullopt), std::move(value));
  }

  void leaveOut() {
    if (isAtRoot())
      takeRoot({});
    else
      open_.back().key.reset();
  }

  bool isAtRoot() const { return open_.empty() || open_.back().name == "plist"; }
  void takeRoot(std::optional<Value> value) {
    root_ = std::move(value);
    hasRoot_ = true;
  }

  struct Free {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
  };
  std::unique_ptr<XML_ParserStruct, Free> parser_;
  std::vector<Element> open_;
  std::optional<Value> root_;
  bool hasRoot_ = false;
  std::size_t count_ = 0;
  bool refused_ = false;
};

}  // namespace

std::optional<Dictionary> decodeXml(std::string_view file) { return Builder().build(file); }

}  // namespace touchpanel::files

#include "providers/files/OpenStepPropertyList.h"

#include <charconv>
#include <cstdint>
#include <string>
#include <system_error>
#include <utility>

#include "providers/files/DecodingLimits.h"
#include "providers/files/TextEncoding.h"

namespace touchpanel::files {

namespace {

constexpr bool isOneOf(char character, std::string_view set) {
  return set.find(character) != std::string_view::npos;
}

constexpr std::string_view kSpaces = " \t\r\n\f\v";
constexpr std::string_view kUnquoted = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_$/:.-";
constexpr std::string_view kOctalDigits = "01234567";

void appendUtf8(std::string& text, std::uint32_t character) {
  const auto tail = [&](unsigned shift) { text += static_cast<char>(0x80U | (character >> shift & 0x3FU)); };
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += static_cast<char>(0xC0U | character >> 6U);
    tail(0);
  } else if (character < 0x10000) {
    text += static_cast<char>(0xE0U | character >> 12U);
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0U | character >> 18U);
    tail(12);
    tail(6);
    tail(0);
  }
}

Value meaningOf(std::string_view unquoted) {
  if (unquoted == "YES") return true;
  if (unquoted == "NO") return false;
  std::int64_t number = 0;
  const auto* const end = unquoted.data() + unquoted.size();
  const auto [stop, error] = std::from_chars(unquoted.data(), end, number);
  if (error != std::errc() || stop != end) return std::string(unquoted);
  if (std::in_range<std::int32_t>(number)) return static_cast<std::int32_t>(number);
  return number;
}

/// Reads from the front of what is left of the text; every read is empty at the first mistake.
class Parser {
 public:
  explicit Parser(std::string_view text) : rest_(text) {}

  std::optional<Dictionary> wholeDictionary() {
    if (!take('{')) return std::nullopt;
    auto found = dictionary(1);
    if (!found || !skip() || !rest_.empty()) return std::nullopt;
    return found;
  }

 private:
  /// Passes over space and comments. False for a comment without an end.
  bool skip() {
    while (!rest_.empty()) {
      if (isOneOf(rest_.front(), kSpaces)) {
        rest_.remove_prefix(1);
      } else if (rest_.starts_with("//")) {
        rest_.remove_prefix(std::min(rest_.find_first_of("\r\n"), rest_.size()));
      } else if (rest_.starts_with("/*")) {
        const auto end = rest_.find("*/", 2);
        if (end == std::string_view::npos) return false;
        rest_.remove_prefix(end + 2);
      } else {
        return true;
      }
    }
    return true;
  }

  bool take(char wanted) {
    if (!skip() || !rest_.starts_with(wanted)) return false;
    rest_.remove_prefix(1);
    return true;
  }

  std::optional<Value> value(std::size_t depth) {
    if (++count_ > kMaximumValues || depth > kMaximumDepth) return std::nullopt;
    if (take('{')) return dictionary(depth + 1);
    if (take('(')) return array(depth + 1);
    if (take('<')) return data();
    if (take('"')) return quoted('"');
    if (take('\'')) return quoted('\'');
    const auto text = unquoted();
    return text.empty() ? std::nullopt : std::optional(meaningOf(text));
  }

  std::optional<Dictionary> dictionary(std::size_t depth) {
    Dictionary found;
    while (!take('}')) {
      const auto name = key();
      if (!name || found.contains(*name) || !take('=')) return std::nullopt;
      auto item = value(depth);
      if (!item || !take(';')) return std::nullopt;
      found.set(*name, std::move(*item));
    }
    return found;
  }

  std::optional<Array> array(std::size_t depth) {
    Array found;
    while (!take(')')) {
      auto item = value(depth);
      if (!item) return std::nullopt;
      found.push_back(std::move(*item));
      if (take(',')) continue;
      return take(')') ? std::optional(std::move(found)) : std::nullopt;
    }
    return found;
  }

  std::optional<std::string> key() {
    if (take('"')) return quoted('"');
    if (take('\'')) return quoted('\'');
    const auto text = unquoted();
    return text.empty() ? std::nullopt : std::optional<std::string>(text);
  }

  std::string_view unquoted() {
    const auto text = rest_.substr(0, rest_.find_first_not_of(kUnquoted));
    rest_.remove_prefix(text.size());
    return text;
  }

  std::optional<Bytes> data() {
    Bytes found;
    while (!take('>')) {
      std::uint8_t byte = 0;
      const auto digits = rest_.substr(0, 2);
      const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
      if (error != std::errc() || stop != digits.data() + 2) return std::nullopt;
      rest_.remove_prefix(2);
      found.push_back(byte);
    }
    return found;
  }

  std::optional<std::string> quoted(char quote) {
    std::string text;
    while (!rest_.empty()) {
      const char character = rest_.front();
      rest_.remove_prefix(1);
      if (character == quote) return text;
      if (character != '\\')
        text += character;
      else if (!escape(text))
        return std::nullopt;
    }
    return std::nullopt;
  }

  /// What follows a backslash: a letter for a control character, up to three octal digits of ASCII, "U" and
  /// the four hexadecimal digits of a UTF-16 unit, or the character itself.
  bool escape(std::string& text) {
    constexpr std::string_view kLetters = "abfnrtv";
    constexpr std::string_view kMeanings = "\a\b\f\n\r\t\v";
    if (rest_.empty()) return false;
    if (isOneOf(rest_.front(), kOctalDigits)) return octal(text);
    const char character = rest_.front();
    rest_.remove_prefix(1);
    if (character == 'U') return unicode(text);
    const auto letter = kLetters.find(character);
    text += letter == std::string_view::npos ? character : kMeanings[letter];
    return true;
  }

  bool octal(std::string& text) {
    unsigned character = 0;
    for (int digit = 0; digit < 3 && !rest_.empty() && isOneOf(rest_.front(), kOctalDigits); ++digit) {
      character = character * 8 + static_cast<unsigned>(rest_.front() - '0');
      rest_.remove_prefix(1);
    }
    text += static_cast<char>(character);
    return character > 0 && character < 0x80;
  }

  std::optional<std::uint32_t> unit() {
    constexpr std::size_t kDigits = 4;
    std::uint16_t found = 0;
    const auto digits = rest_.substr(0, kDigits);
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), found, 16);
    if (error != std::errc() || stop != digits.data() + kDigits) return std::nullopt;
    rest_.remove_prefix(kDigits);
    return found;
  }

  bool unicode(std::string& text) {
    const auto isHigh = [](std::uint32_t each) { return each >> 10U == 0xD800U >> 10U; };
    const auto isLow = [](std::uint32_t each) { return each >> 10U == 0xDC00U >> 10U; };
    const auto first = unit();
    if (!first || *first == 0 || isLow(*first)) return false;
    if (!isHigh(*first)) {
      appendUtf8(text, *first);
      return true;
    }
    if (!rest_.starts_with("\\U")) return false;
    rest_.remove_prefix(2);
    const auto second = unit();
    if (!second || !isLow(*second)) return false;
    appendUtf8(text, 0x10000 + ((*first & 0x3FFU) << 10U) + (*second & 0x3FFU));
    return true;
  }

  std::string_view rest_;
  std::size_t count_ = 0;
};

}  // namespace

std::optional<Dictionary> decodeOpenStep(std::string_view file) {
  const auto text = utf8Of(file);
  if (!text || text->find('\0') != std::string::npos) return std::nullopt;
  return Parser(*text).wholeDictionary();
}

}  // namespace touchpanel::files

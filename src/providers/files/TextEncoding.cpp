#include "providers/files/TextEncoding.h"

#include <cstdint>

#include <iconv.h>

namespace touchpanel::files {

namespace {

const char* takeEncoding(std::string_view& text) {
  const auto takes = [&](std::string_view mark) {
    if (!text.starts_with(mark)) return false;
    text.remove_prefix(mark.size());
    return true;
  };
  if (takes("\xEF\xBB\xBF")) return "UTF-8";
  if (takes("\xFF\xFE")) return "UTF-16LE";
  if (takes("\xFE\xFF")) return "UTF-16BE";
  if (text.size() >= 2 && text[1] == '\0') return "UTF-16LE";
  if (text.size() >= 2 && text[0] == '\0') return "UTF-16BE";
  return "UTF-8";
}

}  // namespace

std::optional<std::string> utf8Of(std::string_view text) {
  const auto converter = ::iconv_open("UTF-8", takeEncoding(text));
  if (reinterpret_cast<std::intptr_t>(converter) == -1) return std::nullopt;
  // One UTF-16 unit of two bytes becomes three at the most.
  std::string converted(text.size() * 3 / 2 + 1, '\0');
  auto* from = const_cast<char*>(text.data());  // the function's signature; it does not write there
  auto left = text.size();
  auto* to = converted.data();
  auto room = converted.size();
  const bool isValid = ::iconv(converter, &from, &left, &to, &room) != static_cast<std::size_t>(-1);
  ::iconv_close(converter);
  if (!isValid) return std::nullopt;
  converted.resize(converted.size() - room);
  return converted;
}

}  // namespace touchpanel::files

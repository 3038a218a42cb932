#include "demo/ValueText.h"

namespace touchpanel::demo {
namespace {

struct Writer {
  std::string operator()(bool value) const { return value ? "true" : "false"; }
  std::string operator()(const std::string& value) const { return '"' + value + '"'; }
  std::string operator()(const Bytes& value) const { return std::to_string(value.size()) + " bytes"; }
  std::string operator()(const Array& value) const {
    std::string text;
    for (const auto& element : value) text += (text.empty() ? "" : ", ") + textOf(element);
    return '[' + text + ']';
  }
  std::string operator()(const Dictionary& value) const {
    std::string text;
    for (const auto& [key, element] : value)
      text += (text.empty() ? "" : ", ") + key + ": " + textOf(element);
    return '{' + text + '}';
  }
  std::string operator()(auto number) const { return std::to_string(number); }
};

}  // namespace

std::string textOf(const Value& value) { return std::visit(Writer{}, value.storage()); }

}  // namespace touchpanel::demo

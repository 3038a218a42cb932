#include "emulator/console/Words.h"

#include <charconv>
#include <sstream>

namespace touchpanel::emulator {
namespace {

template <typename Number>
[[noreturn]] void refuse(std::string_view word, Number lowest, Number highest, std::string_view what) {
  std::ostringstream text;
  text << what << " is a number from " << lowest << " to " << highest << ", not " << word;
  throw WordError(text.str());
}

}  // namespace

std::vector<std::string> wordsOf(std::string_view line) {
  std::vector<std::string> words;
  std::istringstream rest{std::string(line)};
  for (std::string word; rest >> word && word[0] != '#';) words.push_back(word);
  return words;
}

double number(std::string_view word, double lowest, double highest, std::string_view what) {
  double value = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
  const bool whole = error == std::errc() && end == word.data() + word.size();
  // Written so that a value that is not a number is refused too.
  if (!whole || !(value >= lowest && value <= highest)) refuse(word, lowest, highest, what);
  return value;
}

std::uint64_t wholeNumber(std::string_view word, std::uint64_t lowest, std::uint64_t highest,
                          std::string_view what) {
  const bool hexadecimal = word.starts_with("0x");
  const std::string_view digits = hexadecimal ? word.substr(2) : word;
  std::uint64_t value = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), value, hexadecimal ? 16 : 10);
  const bool whole = error == std::errc() && end == digits.data() + digits.size();
  if (!whole || value < lowest || value > highest) refuse(word, lowest, highest, what);
  return value;
}

}  // namespace touchpanel::emulator

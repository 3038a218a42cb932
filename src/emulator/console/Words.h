#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace touchpanel::emulator {

/// A word of a command that cannot be understood; the text is for the one who wrote it.
class WordError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The words of a line, separated by blanks; a word that begins with '#' ends the line.
std::vector<std::string> wordsOf(std::string_view line);

/// The number that `word` is. Throws WordError, naming `what`, when it is none or outside lowest..highest.
double number(std::string_view word, double lowest, double highest, std::string_view what);
/// The same for whole numbers, decimal or hexadecimal with 0x.
std::uint64_t wholeNumber(std::string_view word, std::uint64_t lowest, std::uint64_t highest,
                          std::string_view what);

}  // namespace touchpanel::emulator

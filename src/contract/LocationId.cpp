#include "contract/LocationId.h"

#include <charconv>
#include <vector>

namespace touchpanel {
namespace {

constexpr int kDigits = 6;
constexpr int kBitsPerDigit = 4;
constexpr std::uint8_t kLargestDigit = 15;
constexpr int kBusShift = kDigits * kBitsPerDigit;
constexpr std::uint32_t kPortMask = (1U << kBusShift) - 1;

/// The digits of a port path, from the left; nothing when they do not fit.
std::optional<std::uint32_t> digitsOf(std::span<const std::uint8_t> ports) {
  std::uint32_t digits = 0;
  int left = kDigits;
  for (const auto port : ports) {
    const int width = port > kLargestDigit || port == 0 ? 3 : 1;
    left -= width;
    if (left < 0) return std::nullopt;
    digits |= static_cast<std::uint32_t>(port) << (left * kBitsPerDigit);
  }
  return digits;
}

/// FNV-1a, folded to the bits beside the bus.
std::uint32_t hashOf(std::uint8_t bus, std::span<const std::uint8_t> ports) {
  std::uint32_t hash = 2166136261U;
  const auto mix = [&](std::uint8_t byte) { hash = (hash ^ byte) * 16777619U; };
  mix(bus);
  for (const auto port : ports) mix(port);
  const std::uint32_t folded = (hash ^ (hash >> kBusShift)) & kPortMask;
  return folded != 0 ? folded : 1;
}

/// Takes a number of 0..255 off the front of `text`.
std::optional<std::uint8_t> takeNumber(std::string_view& text) {
  std::uint8_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

bool takePrefix(std::string_view& text, std::string_view prefix) {
  if (!text.starts_with(prefix)) return false;
  text.remove_prefix(prefix.size());
  return true;
}

}  // namespace

std::uint32_t locationIdFor(std::uint8_t bus, std::span<const std::uint8_t> ports) {
  const auto digits = digitsOf(ports);
  if (bus == 0 || !digits) return hashOf(bus, ports);
  return static_cast<std::uint32_t>(bus) << kBusShift | *digits;
}

std::optional<std::uint32_t> locationIdFromKernelName(std::string_view name) {
  const bool rootHub = takePrefix(name, "usb");
  const auto bus = takeNumber(name);
  if (!bus) return std::nullopt;
  if (rootHub) return name.empty() ? std::optional(locationIdFor(*bus, {})) : std::nullopt;

  std::vector<std::uint8_t> ports;
  for (std::string_view separator = "-"; takePrefix(name, separator); separator = ".") {
    const auto port = takeNumber(name);
    if (!port) return std::nullopt;
    ports.push_back(*port);
  }
  // What may follow the device's own name is the interface, after a colon.
  if (ports.empty() || !(name.empty() || name.front() == ':')) return std::nullopt;
  return locationIdFor(*bus, ports);
}

}  // namespace touchpanel

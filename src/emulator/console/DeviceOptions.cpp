#include "emulator/console/DeviceOptions.h"

#include <array>
#include <tuple>
#include <utility>

#include "emulator/console/Words.h"

namespace touchpanel::emulator {
namespace {

using firmware::Fault;

constexpr std::array kKinds = {
    std::pair{std::string_view("infrared"), DeviceKind::Infrared},
    std::pair{std::string_view("optical"), DeviceKind::Optical},
    std::pair{std::string_view("configuration-only"), DeviceKind::ConfigurationOnly}};

constexpr std::array kFaults = {
    std::pair{std::string_view("none"), Fault::None},
    std::pair{std::string_view("ignores-command"), Fault::IgnoresCommand},
    std::pair{std::string_view("wrong-echo"), Fault::WrongEcho},
    std::pair{std::string_view("wrong-reply-class"), Fault::WrongReplyClass},
    std::pair{std::string_view("late-reply"), Fault::LateReply},
    std::pair{std::string_view("dies-after-packets"), Fault::DiesAfterPackets},
    std::pair{std::string_view("stalls"), Fault::Stalls},
    std::pair{std::string_view("garbled-reply"), Fault::GarbledReply},
    std::pair{std::string_view("short-reply"), Fault::ShortReply},
    std::pair{std::string_view("odd-version-length"), Fault::OddVersionLength},
    std::pair{std::string_view("unterminated-bar-code"), Fault::UnterminatedBarCode}};

constexpr firmware::Distortion kUsualDistortion{.offsetX = 0.02,
                                                .offsetY = -0.015,
                                                .scaleX = 0.96,
                                                .scaleY = 1.03,
                                                .skewX = 0.012,
                                                .skewY = -0.008,
                                                .barrel = 0.015,
                                                .noise = 4};
constexpr int kHighestPort = 127;

template <typename Table>
auto choice(const Table& table, std::string_view name, std::string_view what) {
  std::string all;
  for (const auto& [known, value] : table) {
    if (known == name) return value;
    all += ' ' + std::string(known);
  }
  throw WordError(std::string(what) + " is one of:" + all);
}

std::pair<double, double> numberPair(std::string_view text, double lowest, double highest,
                                     std::string_view what) {
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos) throw WordError(std::string(what) + " is a pair of numbers: X,Y");
  return {number(text.substr(0, comma), lowest, highest, what),
          number(text.substr(comma + 1), lowest, highest, what)};
}

void apply(DeviceOptions& options, DeviceKind kind, std::string_view key, std::string_view value) {
  firmware::Distortion& distortion = options.distortion;
  if (key == "product") {
    const auto productId = static_cast<std::uint16_t>(wholeNumber(value, 0, 0xFFFF, key));
    if (kindOf(productId) != kind)
      throw WordError("no touchscreen of that kind has product id " + std::string(value));
    options.description.productId = productId;
  } else if (key == "serial") {
    const std::uint16_t productId = options.description.productId;
    options.description =
        firmware::exampleDevice(kind, static_cast<std::uint32_t>(wholeNumber(value, 0, UINT32_MAX, key)));
    options.description.productId = productId;
  } else if (key == "seed") {
    options.seed = static_cast<std::uint32_t>(wholeNumber(value, 0, UINT32_MAX, key));
  } else if (key == "port") {
    options.port = static_cast<int>(wholeNumber(value, 0, kHighestPort, key));
  } else if (key == "offset") {
    std::tie(distortion.offsetX, distortion.offsetY) = numberPair(value, -1, 1, key);
  } else if (key == "scale") {
    std::tie(distortion.scaleX, distortion.scaleY) = numberPair(value, 0.1, 10, key);
  } else if (key == "skew") {
    std::tie(distortion.skewX, distortion.skewY) = numberPair(value, -1, 1, key);
  } else if (key == "barrel") {
    distortion.barrel = number(value, -1, 1, key);
  } else if (key == "noise") {
    distortion.noise = number(value, 0, 1000, key);
  } else {
    throw WordError("there is no option " + std::string(key));
  }
}

}  // namespace

DeviceOptions deviceOptions(std::string_view kindName, std::span<const std::string> words) {
  const DeviceKind kind = choice(kKinds, kindName, "a kind");
  DeviceOptions options{.description = firmware::exampleDevice(kind), .distortion = kUsualDistortion};
  for (const std::string& word : words) {
    const std::size_t equals = word.find('=');
    if (equals == std::string::npos) throw WordError("an option is written OPTION=VALUE, not " + word);
    apply(options, kind, std::string_view(word).substr(0, equals), std::string_view(word).substr(equals + 1));
  }
  return options;
}

firmware::Fault faultNamed(std::string_view name) { return choice(kFaults, name, "a fault"); }

}  // namespace touchpanel::emulator

#include "history/RecordCoding.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace touchpanel {
namespace {

/// Seconds from 1970 to the end of the year 9999, the last that dates are made for.
constexpr std::int64_t kLastSecond = 253402300799;
/// In points, pixels, millimetres or logical units: far beyond any screen.
constexpr double kLongestDistance = 1e6;

template <typename Choice>
struct Word {
  Choice choice;
  std::string_view word;
};
constexpr auto kEvents = std::to_array<Word<CalibrationEvent>>({{CalibrationEvent::AsFound, "found"},
                                                                {CalibrationEvent::Replaced, "replaced"},
                                                                {CalibrationEvent::Accepted, "accepted"},
                                                                {CalibrationEvent::Reset, "reset"},
                                                                {CalibrationEvent::Restored, "restored"}});
constexpr auto kWrittenStates = std::to_array<Word<WrittenState>>({{WrittenState::Yes, "yes"},
                                                                   {WrittenState::Partly, "partly"},
                                                                   {WrittenState::No, "no"},
                                                                   {WrittenState::Unknown, "unknown"}});

template <typename Choice, std::size_t size>
std::string wordOf(const std::array<Word<Choice>, size>& words, Choice choice) {
  return std::string(std::ranges::find(words, choice, &Word<Choice>::choice)->word);
}

template <typename Choice, std::size_t size>
std::optional<Choice> choiceOf(const std::array<Word<Choice>, size>& words, const std::string& word) {
  const auto found = std::ranges::find(words, word, &Word<Choice>::word);
  if (found == words.end()) return std::nullopt;
  return found->choice;
}

using PackedTouch = std::array<float, 4>;

Bytes packed(const std::vector<LandedTouch>& touches) {
  Bytes bytes;
  for (const auto& [meant, landed] : touches) {
    const auto image = imageOf(PackedTouch{meant.x, meant.y, landed.x, landed.y});
    bytes.insert(bytes.end(), image.begin(), image.end());
  }
  return bytes;
}

bool isDistance(double value) { return value >= 0 && value <= kLongestDistance; }  // false for NaN

bool isSensible(const TouchErrors& errors) {
  return isDistance(errors.mean) && isDistance(errors.largest) && errors.mean <= errors.largest;
}

std::optional<std::vector<LandedTouch>> unpacked(const Bytes& bytes) {
  if (bytes.size() % sizeof(PackedTouch) != 0) return std::nullopt;
  std::vector<LandedTouch> touches;
  for (std::size_t at = 0; at < bytes.size(); at += sizeof(PackedTouch)) {
    PackedTouch touch;
    copyImage(std::span(bytes).subspan(at, sizeof touch), touch);
    if (!std::ranges::all_of(touch, [](float value) { return isDistance(std::abs(value)); }))
      return std::nullopt;
    touches.push_back({{touch[0], touch[1]}, {touch[2], touch[3]}});
  }
  return touches;
}

double realOf(const Dictionary& record, std::string_view key) {
  const auto* value = record.find(key);
  if (value == nullptr) return -1;
  if (const auto* real = value->get<double>()) return *real;
  return value->isNumber() ? static_cast<double>(value->longInteger()) : -1;
}

std::optional<CalibrationFit> decodedFit(const Dictionary& record) {
  const auto* bytes = record.bytes(record_key::kTouches);
  auto touches = bytes ? unpacked(*bytes) : std::nullopt;
  if (!touches) return std::nullopt;
  CalibrationFit fit{
      .targets = record.integer(record_key::kTargets),
      .pixels = {realOf(record, record_key::kMeanPixels), realOf(record, record_key::kLargestPixels)},
      .screen = {static_cast<float>(realOf(record, record_key::kWidth)),
                 static_cast<float>(realOf(record, record_key::kHeight))},
      .touches = std::move(*touches)};
  if (record.contains(record_key::kMeanMillimetres))
    fit.millimetres = {realOf(record, record_key::kMeanMillimetres),
                       realOf(record, record_key::kLargestMillimetres)};
  const bool sensible = fit.targets > 0 && fit.targets <= kMaximumTargets &&
                        std::cmp_less_equal(fit.touches.size(), fit.targets) && isSensible(fit.pixels) &&
                        (!fit.millimetres || isSensible(*fit.millimetres)) && isDistance(fit.screen.width) &&
                        isDistance(fit.screen.height) && fit.screen.width > 0 && fit.screen.height > 0;
  if (!sensible) return std::nullopt;
  return fit;
}

bool hasFiniteCoefficients(const _CALIB_PARAM& axis) {
  const float coefficients[] = {axis.A03, axis.A12, axis.A21, axis.A30, axis.A02,
                                axis.A11, axis.A20, axis.A01, axis.A10, axis.A00};
  return std::ranges::all_of(coefficients, [](float value) { return std::isfinite(value); });
}

}  // namespace

Dictionary encodedRecord(const CalibrationRecord& record) {
  const auto image = imageOf(record.context);
  Dictionary encoded{{record_key::kTime, std::int64_t{record.time.time_since_epoch().count()}},
                     {record_key::kEvent, wordOf(kEvents, record.event)},
                     {record_key::kWritten, wordOf(kWrittenStates, record.written)},
                     {record_key::kDeviceContext, Bytes(image.begin(), image.end())}};
  if (!record.fit) return encoded;
  encoded.set(record_key::kTargets, record.fit->targets);
  encoded.set(record_key::kMeanPixels, record.fit->pixels.mean);
  encoded.set(record_key::kLargestPixels, record.fit->pixels.largest);
  if (const auto& millimetres = record.fit->millimetres) {
    encoded.set(record_key::kMeanMillimetres, millimetres->mean);
    encoded.set(record_key::kLargestMillimetres, millimetres->largest);
  }
  encoded.set(record_key::kWidth, double{record.fit->screen.width});
  encoded.set(record_key::kHeight, double{record.fit->screen.height});
  encoded.set(record_key::kTouches, packed(record.fit->touches));
  return encoded;
}

std::optional<CalibrationRecord> decodedRecord(const Value& value) {
  const auto* stored = value.get<Dictionary>();
  const auto* image = stored ? stored->bytes(record_key::kDeviceContext) : nullptr;
  if (image == nullptr || image->size() != kDeviceContextSize) return std::nullopt;
  const auto event = choiceOf(kEvents, stored->text(record_key::kEvent));
  const auto written = choiceOf(kWrittenStates, stored->text(record_key::kWritten));
  const auto seconds = stored->longInteger(record_key::kTime);
  if (!event || !written || seconds < 0 || seconds > kLastSecond) return std::nullopt;

  CalibrationRecord record{
      .time = std::chrono::sys_seconds(std::chrono::seconds(seconds)), .event = *event, .written = *written};
  copyImage(*image, record.context);
  const auto& params = record.context.CalibParams;
  if (record.isCalibrated() && !(hasFiniteCoefficients(params.X) && hasFiniteCoefficients(params.Y)))
    return std::nullopt;
  if (stored->contains(record_key::kTargets)) {
    record.fit = decodedFit(*stored);
    if (!record.fit) return std::nullopt;
  }
  return record;
}

}  // namespace touchpanel

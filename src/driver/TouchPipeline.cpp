#include "driver/TouchPipeline.h"

#include <algorithm>

#include "contract/DriverProperties.h"

namespace touchpanel::driver {

namespace {
/// What the later stages rely on: known ids, each once, and coordinates inside the range. Sets `down` to all of
/// them and leaves out those of `ignored`.
RawFrame checked(const RawFrame& input, ContactIds ignored, ContactIds& down) {
  RawFrame frame;
  frame.time = input.time;
  down = 0;
  const auto count = std::min<std::size_t>(input.count, kMaximumContacts);
  for (std::size_t i = 0; i < count; ++i) {
    const auto& contact = input.contacts[i];
    if (contact.id < 0 || contact.id >= static_cast<std::int32_t>(kMaximumContacts)) continue;
    if (down & idOf(contact)) continue;
    down |= idOf(contact);
    if (ignored & idOf(contact)) continue;
    frame.contacts[frame.count++] = {contact.id, std::clamp(contact.x, 0, kLogicalMaximum),
                                     std::clamp(contact.y, 0, kLogicalMaximum)};
  }
  return frame;
}

bool endsTouch(const TouchSettings& before, const TouchSettings& after) {
  return before.mode != after.mode || before.enableTouch != after.enableTouch ||
         before.enableRightClick != after.enableRightClick;
}
}  // namespace

TouchPipeline::TouchPipeline(std::function<void(const OutputFrame&)> sink, DeviceKind kind)
    : hasFilters_(kind == DeviceKind::Optical), output_(std::move(sink)), pointer_(output_) {
  configure(settings_);
}

void TouchPipeline::configure(const TouchSettings& settings) {
  if (endsTouch(settings_, settings)) endTouch();
  settings_ = settings;
  sensitivity_.configure(settings);
  smoothing_.configure(settings);
  pointer_.configure(settings);
}

void TouchPipeline::setDoubleClick(std::chrono::milliseconds time, std::int32_t area) {
  pointer_.setDoubleClick(std::max(time, std::chrono::milliseconds(0)),
                          std::clamp(area, 0, configration_limit::kMaximumArea));
}

void TouchPipeline::startCapture() {
  endTouch();
  capture_.start();
  pointer_.setPlain(true);
}

void TouchPipeline::stopCapture() {
  if (!capture_.active()) return;
  endTouch();
  capture_.stop();
  pointer_.setPlain(false);
}

void TouchPipeline::endTouch() {
  output_.releaseAll();
  pointer_.reset();
  capture_.dropTouch();
  sensitivity_.reset();
  smoothing_.reset();
  ignored_ = down_;
}

void TouchPipeline::releaseAll() {
  down_ = 0;
  endTouch();
}

void TouchPipeline::process(const RawFrame& input) {
  elapse(input.time);
  auto frame = checked(input, ignored_, down_);
  ignored_ &= down_;
  if (!settings_.enableTouch) return;
  if (capture_.active()) {
    capture_.observe(frame);
    pointer_.process(frame);
    return;
  }
  if (hasFilters_) sensitivity_.apply(frame);
  curve_.apply(frame);
  if (hasFilters_) {
    if (const auto end = smoothing_.ending(frame)) act(*end);
    smoothing_.apply(frame);
  }
  act(frame);
}

void TouchPipeline::act(const RawFrame& frame) {
  if (settings_.mode == kMultiTouch)
    output_.contacts(frame);
  else
    pointer_.process(frame);
}

std::optional<std::chrono::microseconds> TouchPipeline::nextDeadline() const {
  const auto hold = pointer_.deadline();
  const auto settling = smoothing_.deadline();
  return hold && settling ? std::min(hold, settling) : hold ? hold : settling;
}

void TouchPipeline::tick(std::chrono::microseconds now) {
  const auto settling = smoothing_.deadline();
  if (settling && now >= *settling) act(smoothing_.settled(now));
  elapse(now);
}

void TouchPipeline::elapse(std::chrono::microseconds now) {
  const auto due = pointer_.deadline();
  if (due && now >= *due) pointer_.elapsed();
}

}  // namespace touchpanel::driver

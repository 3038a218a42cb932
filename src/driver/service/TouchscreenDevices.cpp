#include "driver/service/TouchscreenDevices.h"

#include <algorithm>

#include "platform/HexText.h"

namespace touchpanel::driver {

namespace {
constexpr std::chrono::seconds kRetryInterval{1};

std::string describe(Status status) {
  switch (status) {
    case kErrorExclusiveAccess:
      return "another program holds it";
    case kErrorNotPermitted:
      return "permission denied";
    case kErrorNotFound:
      return "not there (is the uinput module loaded?)";
    default:
      return "error " + hexText(status);
  }
}

}  // namespace

TouchscreenDevices::TouchscreenDevices(const TouchscreenIdentity& identity, TouchInputs& inputs,
                                       PointerDevices& pointers, Timers& timers, Diagnostics& diagnostics,
                                       FrameListener& frames)
    : identity_(identity),
      inputs_(inputs),
      pointers_(pointers),
      timers_(timers),
      frames_(frames),
      pointerOutage_(diagnostics),
      grabOutage_(diagnostics),
      retry_(timers.create([this] { attach(); })) {
  attach();
}

void TouchscreenDevices::addNode(const std::string& path) {
  nodes_.push_back({path, false, nullptr});
  attach();
}

bool TouchscreenDevices::removeNode(const std::string& path) {
  const auto found =
      std::find_if(nodes_.begin(), nodes_.end(), [&](const Node& node) { return node.path == path; });
  if (found == nodes_.end()) return false;
  const bool wasSource = source_ && found->input.get() == source_;
  nodes_.erase(found);
  if (!wasSource) return false;
  source_ = nullptr;
  chooseSource();
  return true;
}

void TouchscreenDevices::setMultiTouch(bool wanted) {
  multiTouch_ = wanted;
  if (!pointer_) return;
  if (const auto status = pointer_->setMultiTouch(wanted); status != kSuccess) pointerFailed(status);
}

void TouchscreenDevices::write(const OutputFrame& frame) {
  if (!pointer_ || pointerBroken_) return;
  if (const auto status = pointer_->write(frame); status != kSuccess) pointerFailed(status);
}

void TouchscreenDevices::pointerFailed(Status status) {
  // Called from inside a frame of an input that must not be closed now: the retry makes a new device.
  pointerBroken_ = true;
  pointerOutage_.begin("Touchscreen " + hexText(identity_.locationId) + ": the pointer device fails, " +
                       describe(status) + ".");
  retry_->arm(timers_.now() + kRetryInterval);
}

void TouchscreenDevices::attach() {
  bool all = makePointer();
  if (all)
    for (auto& node : nodes_) all = grab(node) && all;
  if (all) grabOutage_.end("Touchscreen " + hexText(identity_.locationId) + ": its input is ours again.");
  chooseSource();
  if (all)
    retry_->disarm();
  else
    retry_->arm(timers_.now() + kRetryInterval);
}

bool TouchscreenDevices::makePointer() {
  if (pointerBroken_) pointer_.reset();
  pointerBroken_ = false;
  if (pointer_) return true;
  auto status = pointers_.create(identity_, pointer_);
  if (status == kSuccess) status = pointer_->setMultiTouch(multiTouch_);
  if (status == kSuccess) {
    pointerOutage_.end("Touchscreen " + hexText(identity_.locationId) + ": the pointer device is there now.");
    return true;
  }
  pointer_.reset();
  source_ = nullptr;
  for (auto& node : nodes_) node.input.reset();
  pointerOutage_.begin("Touchscreen " + hexText(identity_.locationId) + ": no pointer device can be made, " +
                       describe(status) + ". Its touches stay raw.");
  return false;
}

bool TouchscreenDevices::grab(Node& node) {
  if (node.input || node.refused) return true;
  const auto status = inputs_.open(node.path, node.input);
  if (status == kSuccess) return true;
  node.input.reset();
  node.refused = status == kErrorUnsupported;
  if (node.refused) return true;
  grabOutage_.begin("Touchscreen " + hexText(identity_.locationId) + ": " + node.path + " cannot be taken, " +
                    describe(status) + ".");
  return false;
}

void TouchscreenDevices::chooseSource() {
  if (source_) return;
  for (const auto& node : nodes_) {
    if (!node.input || !node.input->reportsTouches()) continue;
    source_ = node.input.get();
    node.input->listen(frames_);
    return;
  }
}

}  // namespace touchpanel::driver

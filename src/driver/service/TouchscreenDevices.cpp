#include "driver/service/TouchscreenDevices.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/HexText.h"

namespace touchpanel::driver {

namespace {
constexpr std::chrono::seconds kRetryInterval{1};
/// In which every desktop has taken a new device up.
constexpr std::chrono::seconds kTakingUp{1};

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

TouchscreenDevices::TouchscreenDevices(const TouchscreenIdentity& identity, const ServicePorts& ports,
                                       TouchChain& chain, std::function<void()> settled)
    : identity_(identity),
      ports_(ports),
      chain_(chain),
      settled_(std::move(settled)),
      outputOutage_(ports.diagnostics),
      grabOutage_(ports.diagnostics),
      pointer_(OutputKind::Pointer, ports.outputs, chain),
      touch_(OutputKind::Touch, ports.outputs, chain),
      retry_(ports.timers.create([this] { attach(); })),
      settling_(ports.timers.create([this] { settle(); })) {}

std::string TouchscreenDevices::name() const { return "Touchscreen " + hexText(identity_.locationId); }

void TouchscreenDevices::addNode(const std::string& path) {
  nodes_.push_back({path, false, nullptr});
  attach();
}

void TouchscreenDevices::removeNode(const std::string& path) {
  const auto found =
      std::find_if(nodes_.begin(), nodes_.end(), [&](const Node& node) { return node.path == path; });
  if (found == nodes_.end()) return;
  if (found->input && found->input.get() == source_) dropSource();
  nodes_.erase(found);
  chooseSource();
}

void TouchscreenDevices::want(const WantedDevices& wanted) {
  const auto describe = [&](OutputKind kind, AxisResolution resolution) {
    return OutputDescription{identity_, kind, resolution};
  };
  pointer_.want(wanted.pointer ? std::optional(describe(OutputKind::Pointer, wanted.pointerResolution))
                               : std::nullopt);
  touch_.want(wanted.touch ? std::optional(describe(OutputKind::Touch, wanted.touchResolution))
                           : std::nullopt);
  attach();
}

void TouchscreenDevices::deviceFailed() {
  for (const auto kind : {OutputKind::Pointer, OutputKind::Touch})
    if (const auto status = chain_.failure(kind); status != kSuccess)
      outputOutage_.begin(name() + ": its device for the desktop fails, " + describe(status) + ".");
  retry_->arm(ports_.timers.now() + kRetryInterval);
}

void TouchscreenDevices::settle() {
  pointer_.settle();
  touch_.settle();
  settled_();
}

void TouchscreenDevices::attach() {
  bool all = makeOutputs();
  if (all)
    for (auto& node : nodes_) all = grab(node) && all;
  if (all) grabOutage_.end(name() + ": its input is ours again.");
  chooseSource();
  if (all)
    retry_->disarm();
  else
    retry_->arm(ports_.timers.now() + kRetryInterval);
  if (areSettled())
    settling_->disarm();
  else
    settling_->arm(ports_.timers.now() + kTakingUp);
}

bool TouchscreenDevices::makeOutputs() {
  for (auto* slot : std::array{&pointer_, &touch_}) {
    const auto status = slot->prepare();
    if (status == kSuccess) continue;
    dropSource();
    for (auto& node : nodes_) node.input.reset();
    pointer_.clear();
    touch_.clear();
    outputOutage_.begin(name() + ": no device for the desktop can be made, " + describe(status) +
                        ". Its touches stay raw.");
    return false;
  }
  outputOutage_.end(name() + ": its device for the desktop is there now.");
  return true;
}

bool TouchscreenDevices::grab(Node& node) {
  if (node.input || node.refused) return true;
  const auto status = ports_.inputs.open(node.path, node.input);
  if (status == kSuccess) return true;
  node.input.reset();
  node.refused = status == kErrorUnsupported;
  if (node.refused) {
    ports_.diagnostics.line(name() + ": " + node.path +
                            " is nothing to touch with and is left to the desktop.");
    return true;
  }
  if (status != kErrorBusy)
    grabOutage_.begin(name() + ": " + node.path + " cannot be taken, " + describe(status) + ".");
  return false;
}

void TouchscreenDevices::chooseSource() {
  TouchInput* best = nullptr;
  for (const auto& node : nodes_)
    if (node.input && node.input->reports() != InputReports::Nothing &&
        (!best || node.input->reports() > best->reports()))
      best = node.input.get();
  if (best == source_) return;
  dropSource();
  source_ = best;
  source_->listen(&chain_);
}

void TouchscreenDevices::dropSource() {
  if (!source_) return;
  source_->listen(nullptr);
  source_ = nullptr;
  chain_.change([](TouchPipeline& pipeline) { pipeline.releaseAll(); });
}

}  // namespace touchpanel::driver

#include "driver/service/TouchChain.h"

namespace touchpanel::driver {

TouchChain::TouchChain(TouchThread& thread, DeviceKind kind, Notice& failed)
    : thread_(thread), failed_(failed), pipeline_([this](const OutputFrame& out) { write(out); }, kind) {}

void TouchChain::change(const std::function<void(TouchPipeline&)>& change) const {
  thread_.run([&] { change(pipeline_); });
}

void TouchChain::setOutput(OutputKind kind, OutputDevice* device) {
  thread_.run([&] {
    auto& output = outputs_[indexOf(kind)];
    output.device = device;
    output.failure = kSuccess;
  });
}

void TouchChain::frame(const RawFrame& frame) {
  lastFrame_ = frame.time;
  pipeline_.process(frame);
}

void TouchChain::write(const OutputFrame& frame) {
  for (auto& output : outputs_) {
    if (!output.device || output.failure != kSuccess) continue;
    const auto status = output.device->write(frame);
    if (status == kSuccess) continue;
    output.failure = status;
    failed_.give();
  }
}

}  // namespace touchpanel::driver

#pragma once

#include <array>
#include <atomic>
#include <functional>

#include "driver/TouchPipeline.h"
#include "platform/Notices.h"
#include "platform/OutputDevices.h"
#include "platform/TouchInputs.h"
#include "platform/TouchThread.h"

namespace touchpanel::driver {

/// One touchscreen's way from raw frames to the devices that the desktop sees, on the touch thread. The main thread
/// steers it by calls that run there.
class TouchChain final : public FrameListener {
 public:
  /// `failed` is given when a device refuses a frame. Neither is owned.
  TouchChain(TouchThread& thread, DeviceKind kind, Notice& failed);
  TouchChain(const TouchChain&) = delete;
  TouchChain& operator=(const TouchChain&) = delete;

  // On the main thread. Each waits for the touch thread, tens of microseconds.
  void change(const std::function<void(TouchPipeline&)>& change) const;
  /// Where frames go from now on; null: nowhere. Not owned.
  void setOutput(OutputKind kind, OutputDevice* device);

  // On any thread.
  CapturedPoint captured() const { return pipeline_.capture().last(); }
  /// The time of the last frame, 0 before the first.
  std::chrono::microseconds lastFrame() const { return lastFrame_; }
  /// The status with which the device of that kind refused a frame since it was set; it gets no further ones.
  Status failure(OutputKind kind) const { return outputs_[indexOf(kind)].failure; }

  // On the touch thread.
  void frame(const RawFrame& frame) override;
  std::optional<std::chrono::microseconds> nextDeadline() const override { return pipeline_.nextDeadline(); }
  void tick(std::chrono::microseconds now) override { pipeline_.tick(now); }

 private:
  struct Output {
    OutputDevice* device = nullptr;
    std::atomic<Status> failure = kSuccess;
  };
  static std::size_t indexOf(OutputKind kind) { return static_cast<std::size_t>(kind); }
  void write(const OutputFrame& frame);

  TouchThread& thread_;
  Notice& failed_;
  std::array<Output, 2> outputs_;
  std::atomic<std::chrono::microseconds> lastFrame_{};
  mutable TouchPipeline pipeline_;
};

}  // namespace touchpanel::driver

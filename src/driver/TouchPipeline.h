#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include "contract/MonitorPlacement.h"
#include "contract/ProductId.h"
#include "driver/CalibrationCurve.h"
#include "driver/Capture.h"
#include "driver/ContactIds.h"
#include "driver/PointerOutput.h"
#include "driver/SensitivityFilter.h"
#include "driver/SinglePointer.h"
#include "driver/Smoothing.h"
#include "platform/TouchFrames.h"

namespace touchpanel::driver {

/// From a raw frame to output frames, stage after stage:
///
///     raw --> capture --> sensitivity --> calibration --> smoothing --+--> double tap --> click range -->
///     mode 0..2
///                |                                                    +--> contacts, mode 3
///                +-- while a calibration runs: raw, plain press and release
///
/// all of which is on the glass; what goes out is turned and scaled to where the monitor lies on the desktop.
///
/// A change that would leave a touch half old and half new (mode, right click, touch on or off, capture, part
/// of the desktop) ends it: every button and contact is let go, and its fingers count again once they have
/// left the glass, each by itself: dirt never does.
class TouchPipeline {
 public:
  /// The sensitivity filter and smoothing exist on optical touchscreens only.
  TouchPipeline(std::function<void(const OutputFrame&)> sink, DeviceKind kind);

  void configure(const TouchSettings& settings);
  void configure(const CalibrationSettings& settings) { curve_.configure(settings); }
  /// A changed part of the desktop ends a touch that is under way.
  void configure(const MonitorPlacement& placement) {
    if (output_.place(placement.pointer, placement.touch)) endTouch();
  }
  /// Values out of range act as the nearest within.
  void setDoubleClick(std::chrono::milliseconds time, std::int32_t area);
  void startCapture();
  void stopCapture();
  void expectPoint(std::int32_t pointId) { capture_.expect(pointId); }
  const Capture& capture() const { return capture_; }

  void process(const RawFrame& input);
  /// Of a finger that holds still (a right click is due) or that smoothing has not reached yet.
  std::optional<std::chrono::microseconds> nextDeadline() const;
  void tick(std::chrono::microseconds now);
  /// All fingers are gone without having left.
  void releaseAll();

 private:
  void endTouch();
  void act(const RawFrame& frame);
  void elapse(std::chrono::microseconds now);

  bool hasFilters_;
  TouchSettings settings_;
  ContactIds down_ = 0;     ///< in the last frame
  ContactIds ignored_ = 0;  ///< of these, those of a touch that a change has ended
  Capture capture_;
  SensitivityFilter sensitivity_;
  CalibrationCurve curve_;
  Smoothing smoothing_;
  PointerOutput output_;
  SinglePointer pointer_;
};

}  // namespace touchpanel::driver

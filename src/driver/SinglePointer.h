#pragma once

#include <chrono>

#include "contract/TouchSettings.h"
#include "driver/ClickModes.h"
#include "driver/ClickRange.h"
#include "driver/DoubleTap.h"
#include "driver/DragAndHold.h"
#include "driver/PrimaryFinger.h"

namespace touchpanel::driver {

/// Modes 0 to 2: one finger leads one pointer, through double-tap help and click range into the touch mode.
class SinglePointer {
 public:
  explicit SinglePointer(PointerOutput& output);
  SinglePointer(const SinglePointer&) = delete;
  SinglePointer& operator=(const SinglePointer&) = delete;

  void configure(const TouchSettings& settings);
  void setDoubleClick(std::chrono::milliseconds time, std::int32_t area) { doubleTap_.configure(time, area); }
  /// Plain: for a calibration, every touch is an exact press and release of the left button whatever the
  /// settings, so that each finger-up is one mouse-up.
  void setPlain(bool plain);

  void process(const RawFrame& frame);
  std::optional<std::chrono::microseconds> deadline() const { return mode_->deadline(); }
  void elapsed() { mode_->elapsed(); }
  /// Forgets the touch; the caller releases the buttons.
  void reset();

 private:
  void choose();
  void handle(PrimaryFinger::Event event, Point point, std::chrono::microseconds now);
  void land(Point point, std::chrono::microseconds now);
  void move(Point point);

  PointerOutput& output_;
  TouchSettings settings_;
  bool plain_ = false;
  PrimaryFinger finger_;
  DoubleTap doubleTap_;
  ClickRange clickRange_;
  ClickOnTouch clickOnTouch_;
  ClickOnRelease clickOnRelease_;
  DragAndHold dragAndHold_;
  TouchMode* mode_ = &dragAndHold_;
};

}  // namespace touchpanel::driver

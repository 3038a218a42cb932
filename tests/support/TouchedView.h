#pragma once

#include <chrono>
#include <memory>
#include <utility>
#include <vector>

#include "contract/MonitorPlacement.h"
#include "platform/View.h"
#include "providers/simulated/SimulatedTouchscreen.h"
#include "support/FakeScreen.h"
#include "support/RecordingCanvas.h"

namespace touchpanel::testing {

/// A finger on a simulated touchscreen in front of a screen, and what the desktop makes of it: the pointer's
/// events reach the view that is shown, and redraws that the view asks for are done at once. The screen's picture may be
/// turned by quarter turns clockwise; `screen` is its size as it is turned.
class TouchedView {
 public:
  TouchedView(simulated::SimulatedTouchscreen& touchscreen, Size screen, std::int32_t turn = 0)
      : touchscreen_(touchscreen), screen_(screen), turn_(turn) {
    touchscreen_.setOutput([this](const OutputFrame& frame) { frames_.push_back(frame); });
  }
  ~TouchedView() { touchscreen_.setOutput({}); }
  TouchedView(const TouchedView&) = delete;
  TouchedView& operator=(const TouchedView&) = delete;

  /// Draws `view`, which fills the screen and must stay until its window, that of `record`, is closed.
  void show(View& view, std::shared_ptr<FakeWindowRecord> record) {
    view_ = &view;
    record_ = std::move(record);
    paint();
  }
  bool isClosed() const { return record_->isClosed; }

  void tap(Point point) {
    bool pressed = false;
    for (const auto& frame : touch(point)) {
      const Point location = locationOf(frame);
      if (frame.left && !pressed && !isClosed()) view_->mouseDown(location);
      if (!frame.left && pressed && !isClosed()) view_->mouseUp(location);
      pressed = frame.left;
      while (!isClosed() && std::exchange(record_->redrawRequests, 0) > 0) paint();
    }
  }
  /// Touches the target that is shown as the next one: the middle of its red disc.
  void tapTarget() {
    Point middle;
    for (const auto& [what, place, ink] : canvas_.operations)
      if (what == "oval" && ink == color::kRed)
        middle = {place.x + place.width / 2, place.y + place.height / 2};
    tap(middle);
  }
  void tapMiddle() { tap({screen_.width / 2, screen_.height / 2}); }

 private:
  std::vector<OutputFrame> touch(Point point) {
    using std::chrono_literals::operator""ms;
    frames_.clear();
    const auto [x, y] =
        inTurnedPicture<double>(point.x / screen_.width, 1 - point.y / screen_.height, 1, (4 - turn_) % 4);
    touchscreen_.touch({x, y}, now_ += 1000ms);
    touchscreen_.release(now_ += 50ms);
    return std::exchange(frames_, {});
  }
  /// A frame without a position leaves the pointer where it is.
  Point locationOf(const OutputFrame& frame) {
    if (frame.hasPosition)
      pointer_ = {static_cast<float>(frame.x) * screen_.width / kLogicalMaximum,
                  screen_.height - static_cast<float>(frame.y) * screen_.height / kLogicalMaximum};
    return pointer_;
  }
  void paint() {
    canvas_.operations.clear();
    view_->drawRect(canvas_);
  }

  simulated::SimulatedTouchscreen& touchscreen_;
  Size screen_;
  std::int32_t turn_;
  View* view_ = nullptr;
  std::shared_ptr<FakeWindowRecord> record_;
  RecordingCanvas canvas_;
  std::vector<OutputFrame> frames_;
  std::chrono::microseconds now_{0};
  Point pointer_;
};

}  // namespace touchpanel::testing

#pragma once

#include <cstdint>
#include <optional>

#include "calibration/AdditionStyle.h"
#include "calibration/CalibrationRun.h"
#include "calibration/FitMarks.h"
#include "calibration/FreeSpace.h"

namespace touchpanel {

/// What a calibration shows beside its targets, note, number and buttons, drawn after them and never over them: how
/// far the run is, when it ends by itself, where the last touch was accepted, and how well a finished grid fits. What
/// finds no room is left out.
class CalibrationAdditions {
 public:
  /// For a screen of `size`, in points.
  CalibrationAdditions(const CalibrationRun& run, const Size& size, const SurfaceScale& scale)
      : run_(run), size_(size), style_(AdditionStyle::of(size, scale)) {}

  /// Beside the grid that is laid out in `box`.
  void draw(Canvas& canvas, const Size& box);
  /// While the rectangle `chosen` of a region is dragged out.
  void drawChoice(Canvas& canvas, const Rect& chosen) const;

  /// The pointer is at `location`; the button there is framed. This is also how a finger is seen before its touch is
  /// known to be a press. True when the picture changes.
  bool point(const Point& location, const Size& box);
  /// A mouse-down beside the buttons. True when it holds a ring.
  bool press(const Point& location);
  /// A mouse-up. The target whose touch is to be taken again, if any.
  std::optional<std::int32_t> release(const Point& location);

 private:
  // `texts` is what is free for texts, `marks` what is free for signs on targets.
  void drawCollecting(Canvas& canvas, const Size& box, FreeSpace& texts, FreeSpace& marks) const;
  void drawTick(Canvas& canvas, const Rect& target, std::int32_t age, FreeSpace& marks) const;
  void drawFinished(Canvas& canvas, const Size& box, FreeSpace& texts, FreeSpace& marks);
  void drawButtonFrame(Canvas& canvas, const Size& box, const FreeSpace& marks) const;
  std::optional<Rect> drawTimeLeft(Canvas& canvas, const Rect& number, FreeSpace& texts) const;
  /// In the middle of a line between targets, right below the text at `above` where that is possible. Returns where.
  std::optional<Rect> drawBanner(Canvas& canvas, StyledText text, const Size& box, FreeSpace& texts,
                                 const std::optional<Rect>& above = {}) const;

  const CalibrationRun& run_;
  Size size_;
  AdditionStyle style_;
  FitMarks marks_;
  std::uint8_t pointed_ = 0;  ///< the button under the pointer; see calibration_button
};

}  // namespace touchpanel

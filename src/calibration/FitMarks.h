#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "calibration/AdditionStyle.h"
#include "calibration/FitExamination.h"
#include "calibration/FreeSpace.h"

namespace touchpanel {

/// What is drawn for each target of a finished grid: a cross where it lies, a dot where its touch lands, and a ring
/// when that touch does not fit the others. A target that lies below something else has no cross, and a ring with its
/// number stands as near as there is room.
class FitMarks {
 public:
  void draw(Canvas& canvas, const FitExamination& fit, const Size& box, const AdditionStyle& style,
            FreeSpace& space);
  void clear() { rings_.clear(); }

  /// The target whose ring, as drawn last, a finger touches that put the pointer at `location`: the pointer lies there,
  /// or where the present calibration puts it for a finger on the ring.
  std::optional<std::int32_t> ringAt(const Point& location) const;
  /// The ring that is pressed is drawn filled.
  void press(std::optional<std::int32_t> target) { pressed_ = target; }
  std::optional<std::int32_t> pressed() const { return pressed_; }

 private:
  struct Ring {
    std::int32_t target;
    Point centre;
    Point landing;  ///< where a finger on the centre puts the pointer
    float reach;
  };
  void drawMark(Canvas& canvas, const Point& target, const Point& landed, const AdditionStyle& style,
                const FreeSpace& space) const;
  void drawRing(Canvas& canvas, const FitExamination& fit, const Size& box, std::int32_t target,
                const Point& centre, const AdditionStyle& style);

  std::vector<Ring> rings_;
  std::optional<std::int32_t> pressed_;
};

}  // namespace touchpanel

#pragma once

#include <string>
#include <vector>

#include "platform/Canvas.h"
#include "platform/Geometry.h"
#include "platform/SurfaceScale.h"

namespace touchpanel {

/// How what is drawn beside targets, note, number and buttons looks: dark on the blue background, at a contrast of 4.5 to
/// 1 or more, and large enough to be read from as far away as a person stands who looks at the whole screen (3 m at 55
/// inches).
struct AdditionStyle {
  static constexpr Color kInk{0.02F, 0.1F, 0.18F, 1};
  static constexpr Color kAlarm{0.45F, 0, 0.06F, 1};

  /// All lengths in points.
  float textSize;
  float stroke;      ///< of lines
  float markRadius;  ///< of a cross on a target
  float ringRadius;
  float reach;   ///< how far from the middle of a ring a finger may touch it: a finger's width
  float margin;  ///< what is kept free around everything

  /// For a screen of `size` points.
  static AdditionStyle of(const Size& size, const SurfaceScale& scale);

  /// `pattern` is marked for translation in the context "CalibrationScreen".
  StyledText text(const char* pattern, std::vector<TextNumber> numbers = {}) const;
};

}  // namespace touchpanel

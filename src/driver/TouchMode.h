#pragma once

#include <chrono>
#include <optional>

#include "driver/Point.h"
#include "driver/PointerOutput.h"

namespace touchpanel::driver {

/// What one finger does to the pointer. A mode sees land, any number of moves, and leave; a caller that
/// breaks a touch off releases the buttons itself and calls reset().
class TouchMode {
 public:
  virtual ~TouchMode() = default;
  virtual void land(Point point, std::chrono::microseconds now) = 0;
  virtual void move(Point point) = 0;
  virtual void leave() = 0;
  virtual void reset() = 0;
  /// When elapsed() is to be called unless the touch has ended by then.
  virtual std::optional<std::chrono::microseconds> deadline() const { return std::nullopt; }
  virtual void elapsed() {}
};

}  // namespace touchpanel::driver

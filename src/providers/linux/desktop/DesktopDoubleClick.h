#pragma once

#include <chrono>
#include <optional>

namespace touchpanel {

/// The desktop's own double-click setting, which its programs go by.
class DesktopDoubleClick {
 public:
  virtual ~DesktopDoubleClick() = default;
  /// Nothing when this desktop has no such setting.
  virtual std::optional<std::chrono::milliseconds> time() const = 0;
  /// False when there is none or it may not be changed.
  virtual bool setTime(std::chrono::milliseconds time) = 0;
};

}  // namespace touchpanel

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "history/CalibrationRecord.h"

namespace touchpanel {

/// What the sheet of earlier calibrations shows.
struct ShownHistory {
  std::string device = {};                      ///< the touchscreen's name, which may hold anything
  std::vector<CalibrationRecord> records = {};  ///< newest first
  std::optional<std::size_t> inUse = {};  ///< the newest one that is what the touchscreen is to hold now
  bool isDamaged = false;                 ///< some could not be read
};

class HistoryView {
 public:
  virtual ~HistoryView() = default;
  /// Replaces what is shown.
  virtual void show(const ShownHistory& history) = 0;
};

}  // namespace touchpanel

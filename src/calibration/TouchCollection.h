#pragma once

#include <array>
#include <cstdint>

#include "calibration/CalibrationGrid.h"

namespace touchpanel {

/// The targets of one grid and the touches taken for them so far. `mode` is the device entry's
/// "CalibrateMode" throughout; modes without a grid are neither collecting nor finished.
struct TouchCollection {
  std::int32_t iTouchIndex = 0;            ///< touches taken = index of the target shown
  std::int32_t iObjRow = 1;                ///< twenty-five targets: row shown, 1..5; 6 when all rows are done
  std::int32_t iObjPoints = 0;             ///< twenty-five targets: column shown, 0..4
  std::array<float, 25> fDspX{}, fDspY{};  ///< each target on the unturned glass, in logical units
  std::array<float, 25> fScrX{}, fScrY{};  ///< the raw touch reported for each target
  bool isAgain = false;                    ///< only the target shown is taken once more

  bool isCollecting(std::int32_t mode) const;
  bool isFinished(std::int32_t mode) const;

  /// Takes a raw touch for the target shown and goes on to the next one. The column after the last one of a
  /// row stands until beginRow(). Does nothing when every place is taken.
  void take(std::int32_t mode, std::int32_t rawX, std::int32_t rawY);
  /// Goes back to `target` of a finished grid, to take just its touch once more.
  void takeAgain(std::int32_t target);
  /// Completes the change to the next row that the last touch of a row began.
  void beginRow();
  /// Notes where the target shown lies.
  void noteTarget(const Point& driverUnits);
  /// Starts over with target 0; what the arrays hold stays until it is replaced.
  void restart();
};

}  // namespace touchpanel

#pragma once

#include <span>
#include <vector>

#include "driver/Point.h"
#include "driver/TouchDriver.h"
#include "firmware/TouchSurface.h"

namespace touchpanel::demo {

/// Size of the touched screen in pixels.
struct ScreenSize {
  double width = 0;
  double height = 0;
};

/// How far from `touched` the pointer lands when the driver puts it at `output`, in pixels.
double errorInPixels(firmware::ScreenFraction touched, driver::Point output, ScreenSize screen);

/// Errors of several touches, in pixels. All 0 for none.
struct ErrorSummary {
  double mean = 0;
  double largest = 0;
  bool operator==(const ErrorSummary&) const = default;
};

ErrorSummary summaryOf(std::span<const double> errorsInPixels);

/// One touch on its way from the glass to the pointer. Points of the driver are in logical units.
struct TouchReading {
  firmware::ScreenFraction touched;
  firmware::RawPoint raw;
  driver::Point calibrated;  ///< where the driver's present calibration puts it; `raw` while it has none
  double errorBefore = 0;    ///< pixels from `touched`, if the raw point were used as it is
  double errorAfter = 0;     ///< pixels from `touched` to `calibrated`
};

/// The reading of a touch at `touched` that the sensor reported as `raw`, with the calibration that `driver`
/// holds now. Leaves the driver as it is, so touch modes, smoothing and a running capture play no part.
TouchReading readingOf(firmware::ScreenFraction touched, firmware::RawPoint raw,
                       const driver::TouchDriver& driver, ScreenSize screen);

/// Points all over the screen, none of which is a calibration target of any grid.
std::vector<firmware::ScreenFraction> testPoints();

}  // namespace touchpanel::demo

#include "demo/measure/TouchError.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "contract/DriverProperties.h"
#include "driver/CalibrationCurve.h"

namespace touchpanel::demo {
namespace {

driver::Point calibrated(firmware::RawPoint raw, const driver::TouchDriver& driver) {
  driver::CalibrationSettings settings;
  const auto state = driver.state();
  if (const auto* held = state.dictionary(property::kCalibration)) writeAcceptable(settings, *held);
  driver::CalibrationCurve curve;
  curve.configure(settings);
  return curve.map({raw.x, raw.y});
}

}  // namespace

double errorInPixels(firmware::ScreenFraction touched, driver::Point output, ScreenSize screen) {
  return std::hypot((static_cast<double>(output.x) / kLogicalMaximum - touched.x) * screen.width,
                    (static_cast<double>(output.y) / kLogicalMaximum - touched.y) * screen.height);
}

ErrorSummary summaryOf(std::span<const double> errorsInPixels) {
  if (errorsInPixels.empty()) return {};
  const double sum = std::accumulate(errorsInPixels.begin(), errorsInPixels.end(), 0.0);
  return {sum / static_cast<double>(errorsInPixels.size()), std::ranges::max(errorsInPixels)};
}

TouchReading readingOf(firmware::ScreenFraction touched, firmware::RawPoint raw,
                       const driver::TouchDriver& driver, ScreenSize screen) {
  TouchReading reading{touched, raw, calibrated(raw, driver)};
  reading.errorBefore = errorInPixels(touched, {raw.x, raw.y}, screen);
  reading.errorAfter = errorInPixels(touched, reading.calibrated, screen);
  return reading;
}

std::vector<firmware::ScreenFraction> testPoints() {
  // Targets lie at 1/20 + c * 9/40, which no odd sixteenth meets.
  constexpr int kPerAxis = 8;
  std::vector<firmware::ScreenFraction> points;
  for (int row = 0; row < kPerAxis; ++row)
    for (int column = 0; column < kPerAxis; ++column)
      points.push_back({(column + 0.5) / kPerAxis, (row + 0.5) / kPerAxis});
  return points;
}

}  // namespace touchpanel::demo

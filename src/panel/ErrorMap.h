#pragma once

#include <QStringList>
#include <QWidget>
#include <optional>

#include "history/CalibrationRecord.h"

namespace touchpanel {

/// Where the touches of a calibration landed: each target as a cross, and a line from it to where its touch
/// landed, drawn longer than it is so that it can be seen. In the palette's colours; shapes differ where
/// colours do.
class ErrorMap final : public QWidget {
 public:
  explicit ErrorMap(QWidget* parent = nullptr) : QWidget(parent) {}

  void show(const std::optional<CalibrationFit>& fit);
  /// By how much the lines are longer than they are; 0 when there is nothing to be drawn.
  int exaggeration() const { return exaggeration_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::optional<CalibrationFit> fit_;
  int exaggeration_ = 0;
};

/// The error of each touch in pixels, and in millimetres where these are known.
struct TouchDistance {
  double pixels = 0;
  std::optional<double> millimetres;
};
std::vector<TouchDistance> touchDistances(const CalibrationFit& fit);

}  // namespace touchpanel

// Designer's files know no namespaces.
using touchpanel::ErrorMap;

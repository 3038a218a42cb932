#pragma once

#include <array>
#include <cstddef>

#include "calibration/CubicMap.h"

namespace touchpanel {

/// One target and the touch that was taken for it.
struct TouchSample {
  PlanePoint raw;
  PlanePoint meant;  ///< the target, in the driver's logical units
};

inline constexpr std::size_t kMostSamples = 25;

/// The samples of one grid, of which some may be left out of a fit.
struct TouchSamples {
  std::array<TouchSample, kMostSamples> all{};
  std::array<bool, kMostSamples> used{};
  std::size_t count = 0;

  void add(const TouchSample& sample);
  std::size_t usedCount() const;
};

/// Least squares by orthogonal columns (the samples' raw points normalised to -1..1, the columns made
/// orthonormal one after the other by Gram and Schmidt, twice for full precision): what a judgement of the
/// touches needs beside the coefficients. It judges the solver's work and has no part in it.
class LeastSquares {
 public:
  /// Fits the samples in use with the first `terms` terms of a cubic.
  LeastSquares(const TouchSamples& samples, std::size_t terms);

  /// The samples fix every coefficient. Nothing else below means anything without.
  bool isDetermined() const { return determined_; }
  const CubicMap& map() const { return map_; }
  /// The weight x (X'X)^-1 x' of a raw point: for a sample in use its place in the hat matrix's diagonal, how much
  /// it pulls the fit towards itself; for any other point how far the fit has to reach to get there.
  double leverage(PlanePoint raw) const;

 private:
  using Row = CubicMap::Coefficients;
  Row termsAt(PlanePoint raw) const;
  void normalise(const TouchSamples& samples);
  void orthogonalise(const TouchSamples& samples);

  std::size_t terms_;
  bool determined_ = false;
  PlanePoint centre_;
  PlanePoint radius_{1, 1};
  std::array<Row, kCubicTerms> upper_{};  ///< X = Q * upper
  CubicMap map_;
};

}  // namespace touchpanel

#include "calibration/WrongTouches.h"

#include <cmath>

namespace touchpanel {
namespace {

constexpr double kLevel = 0.005;
/// Wrong touches that are looked for: one in four, so that most of the others are right.
constexpr std::size_t kSamplesToOneWrong = 4;
/// Degrees of freedom below which the scatter of the others is a guess.
constexpr double kLeastFreedom = 3;
/// Raw coordinates are whole numbers, so no scatter is less than that of rounding.
constexpr double kRoundingVariance = 1.0 / 12;
/// A touch that pulls the fit wholly to itself cannot be judged by the others.
constexpr double kMostLeverage = 1 - 1e-6;

PlanePoint residualOf(const LeastSquares& fit, const TouchSample& sample) {
  const auto landed = fit.map().at(sample.raw);
  return {landed.x - sample.meant.x, landed.y - sample.meant.y};
}

/// Sums of squares and products of residuals.
struct Scatter {
  double xx = 0, xy = 0, yy = 0;
  void add(PlanePoint r, double weight) {
    xx += weight * r.x * r.x;
    xy += weight * r.x * r.y;
    yy += weight * r.y * r.y;
  }
};

/// How likely a residual as large as `r` is by chance, when it has `times` the variance of the scatter, of `freedom`
/// degrees.
double chanceOf(PlanePoint r, double times, Scatter scatter, double freedom) {
  const double xx = scatter.xx + freedom * kRoundingVariance, yy = scatter.yy + freedom * kRoundingVariance;
  const double determinant = xx * yy - scatter.xy * scatter.xy;
  const double square =
      (r.x * r.x * yy - 2 * r.x * r.y * scatter.xy + r.y * r.y * xx) / (determinant * times);
  return std::pow(1 + square, -(freedom - 1) / 2);
}

double lengthOf(PlanePoint r, const TouchTolerance& tolerance) {
  return std::hypot(r.x * tolerance.perUnitX, r.y * tolerance.perUnitY);
}

/// The tests of one fit.
class Judgement {
 public:
  Judgement(const TouchSamples& samples, std::size_t terms)
      : samples_(samples),
        fit_(samples, terms),
        freedom_(static_cast<double>(samples.usedCount()) - static_cast<double>(terms)) {
    if (!fit_.isDetermined()) return;
    for (std::size_t k = 0; k < samples.count; ++k)
      if (samples.used[k]) scatter_.add(residualOf(fit_, samples.all[k]), 1);
  }

  bool isPossible() const { return fit_.isDetermined() && freedom_ - 1 >= kLeastFreedom; }

  /// By chance, as far as the other samples in use can say.
  double chanceOfUsed(std::size_t k) const {
    const auto r = residualOf(fit_, samples_.all[k]);
    const double leverage = fit_.leverage(samples_.all[k].raw);
    if (!(leverage < kMostLeverage)) return 1;
    auto others = scatter_;
    others.add(r, -1 / (1 - leverage));
    return chanceOf(r, 1 - leverage, others, freedom_ - 1);
  }
  double chanceOfUnused(std::size_t k) const {
    return chanceOf(residualOf(fit_, samples_.all[k]), 1 + fit_.leverage(samples_.all[k].raw), scatter_,
                    freedom_);
  }
  double distanceOf(std::size_t k, const TouchTolerance& tolerance) const {
    return lengthOf(residualOf(fit_, samples_.all[k]), tolerance);
  }

 private:
  const TouchSamples& samples_;
  LeastSquares fit_;
  double freedom_;
  Scatter scatter_;
};

struct Worst {
  std::size_t index = 0;
  double chance = 1;
};

Worst worstOf(const TouchSamples& samples, const Judgement& judgement) {
  Worst worst;
  for (std::size_t k = 0; k < samples.count; ++k) {
    if (!samples.used[k]) continue;
    const double chance = judgement.chanceOfUsed(k);
    if (chance < worst.chance) worst = {k, chance};
  }
  return worst;
}

}  // namespace

std::array<bool, kMostSamples> wrongTouches(const TouchSamples& samples, std::size_t terms,
                                            const TouchTolerance& tolerance) {
  auto left = samples, right = samples;
  for (std::size_t taken = 0; taken < samples.count / kSamplesToOneWrong; ++taken) {
    const Judgement judgement(left, terms);
    if (!judgement.isPossible()) break;
    const auto worst = worstOf(left, judgement);
    if (worst.chance == 1) break;
    const double level = kLevel / static_cast<double>(left.usedCount());
    left.used[worst.index] = false;
    if (worst.chance < level) right = left;
  }
  std::array<bool, kMostSamples> wrong{};
  const Judgement byTheRight(right, terms);
  if (!byTheRight.isPossible()) return wrong;
  const double level = kLevel / static_cast<double>(samples.count);
  for (std::size_t k = 0; k < samples.count; ++k)
    wrong[k] = samples.used[k] && !right.used[k] && byTheRight.chanceOfUnused(k) < level &&
               byTheRight.distanceOf(k, tolerance) > tolerance.smallest;
  return wrong;
}

double distanceByTheOthers(const TouchSamples& samples, std::size_t terms, std::size_t index,
                           const TouchTolerance& tolerance) {
  auto others = samples;
  others.used[index] = false;
  const LeastSquares fit(others, terms);
  return fit.isDetermined() ? lengthOf(residualOf(fit, samples.all[index]), tolerance) : 0;
}

}  // namespace touchpanel

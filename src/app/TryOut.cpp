#include "app/TryOut.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace touchpanel {
namespace {

/// Test points form a grid of five columns and three rows. The middle and the corners come first, so that the
/// first handful of taps already covers the whole surface.
struct Cell {
  int column;
  int row;
};
constexpr int kColumns = 5, kRows = 3;
constexpr auto kOrder = std::to_array<Cell>({{2, 1},
                                             {0, 0},
                                             {4, 2},
                                             {4, 0},
                                             {0, 2},
                                             {2, 0},
                                             {2, 2},
                                             {0, 1},
                                             {4, 1},
                                             {1, 0},
                                             {3, 2},
                                             {3, 0},
                                             {1, 2},
                                             {1, 1},
                                             {3, 1}});

float middleOf(int cell, int cells, float extent) {
  return extent * (static_cast<float>(cell) + 0.5F) / static_cast<float>(cells);
}

/// From the first to the last point that can be touched.
float spread(int cell, int cells, float extent) {
  return (extent - 1) * static_cast<float>(cell) / static_cast<float>(cells - 1);
}

float distance(Point a, Point b) { return std::hypot(a.x - b.x, a.y - b.y); }

}  // namespace

void TryOut::setSurface(const Size& surface, const SurfaceScale& scale) {
  if (surface == surface_ && scale == scale_) return;
  surface_ = surface;
  scale_ = scale;
  clear();
  testPoints_.clear();
  if (!(surface.width > 0 && surface.height > 0)) return;
  const auto place = layout_ == Layout::Inside ? &middleOf : &spread;
  for (const auto& [column, row] : kOrder)
    testPoints_.push_back({place(column, kColumns, surface.width), place(row, kRows, surface.height)});
}

std::optional<Point> TryOut::markedPoint() const {
  if (testPoints_.empty()) return std::nullopt;
  return testPoints_[taps_.size() % testPoints_.size()];
}

void TryOut::press(Point location, bool wasHeld) {
  touched_ = true;
  wasHeld_ = wasHeld;
  strayed_ = 0;
  start_ = location;
  trail_ = {location};
}

void TryOut::move(Point location) {
  if (!touched_) return;
  strayed_ = std::max(strayed_, distance(location, start_));
  if (trail_.size() == kTrailLength) trail_.erase(trail_.begin());
  trail_.push_back(location);
}

void TryOut::release(Point location) {
  if (!touched_) return;
  move(location);
  touched_ = false;
  const auto marked = markedPoint();
  if (!marked || !(strayed_ <= kDriftReach)) return;
  taps_.push_back({*marked, location});
  manners_.push_back({wasHeld_, strayed_ > kTapReach ? trail_ : std::vector<Point>()});
}

void TryOut::cancel() {
  touched_ = false;
  trail_.clear();
}

void TryOut::clear() {
  cancel();
  taps_.clear();
  manners_.clear();
}

std::size_t TryOut::tapsUntilResult() const {
  return kTapsForResult - std::min(taps_.size(), kTapsForResult);
}

std::optional<TryOutResult> TryOut::result() const {
  if (tapsUntilResult() > 0) return std::nullopt;
  return TryOutResult{taps_.size(), errorsInPixels(taps_, scale_), errorsInMillimetres(taps_, scale_)};
}

}  // namespace touchpanel

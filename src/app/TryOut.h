#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "calibration/TouchErrors.h"
#include "platform/Geometry.h"
#include "platform/SurfaceScale.h"

namespace touchpanel {

struct TryOutResult {
  std::size_t taps = 0;
  TouchErrors pixels;
  std::optional<TouchErrors> millimetres;  ///< when the screen's size is known
  bool operator==(const TryOutResult&) const = default;
};

/// What was unusual about a tap.
struct TryOutManner {
  bool wasHeld = false;           ///< slow enough to be a press and hold
  std::vector<Point> drift = {};  ///< its path when it drifted, else empty
  bool operator==(const TryOutManner&) const = default;
};

/// Judges a calibration by touches: test points on a surface of which one at a time is marked, and how far
/// from it each tap lands. A tap always counts for the marked point, however far away it lands, since on a
/// badly calibrated screen the nearest point is often not the one that was meant. Reads pointer input only
/// and changes nothing.
///
/// | state   | press         | move           | release                                        | cancel  |
/// |---------|---------------|----------------|------------------------------------------------|---------|
/// | idle    | touched       | -              | -                                              | -       |
/// | touched | touched, anew | longer trail   | idle; a tap unless the trail was a stroke      | idle    |
///
/// Locations and sizes are in points of the surface; which way y grows is the caller's choice.
class TryOut {
 public:
  /// Taps that a result needs, so that no single touch passes for a judgement.
  static constexpr std::size_t kTapsForResult = 5;
  /// A touch that strays further than this from where it came down, in points, drifted: it counts, and its
  /// path is kept.
  static constexpr float kTapReach = 12;
  /// One that strays further than this is a stroke and counts for nothing.
  static constexpr float kDriftReach = 72;
  /// Points of a trail that are kept, so that a drawing without end does not grow without end.
  static constexpr std::size_t kTrailLength = 1000;

  /// Where the outer test points lie: half a cell inside the surface, or in its corners and on its edges.
  enum class Layout { Inside, ToTheEdges };
  explicit TryOut(Layout layout = Layout::Inside) : layout_(layout) {}

  /// Lays the test points out over `surface`; forgets all taps when anything is different from before. A
  /// surface without extent has no test points.
  void setSurface(const Size& surface, const SurfaceScale& scale);

  const std::vector<Point>& testPoints() const { return testPoints_; }
  /// The test point to be touched next; none when there are none.
  std::optional<Point> markedPoint() const;

  /// `wasHeld`: the touch arrived as a press and hold, after it had rested.
  void press(Point location, bool wasHeld = false);
  void move(Point location);
  void release(Point location);
  /// The touch under way is not to count, as when the page is left.
  void cancel();
  /// Forgets all taps and marks the first point again.
  void clear();

  /// Every tap in order.
  const std::vector<LandedTouch>& taps() const { return taps_; }
  /// How each of them was made, in the same order.
  const std::vector<TryOutManner>& manners() const { return manners_; }
  /// Where the touch under way, or the last one, went; of a long one the later part.
  const std::vector<Point>& trail() const { return trail_; }
  std::size_t tapsUntilResult() const;
  /// None before kTapsForResult taps.
  std::optional<TryOutResult> result() const;

 private:
  Size surface_;
  SurfaceScale scale_;
  std::vector<Point> testPoints_;  ///< in the order in which they are marked
  std::vector<LandedTouch> taps_;
  std::vector<Point> trail_;
  std::vector<TryOutManner> manners_;
  Layout layout_;
  Point start_;
  bool touched_ = false;
  bool wasHeld_ = false;
  float strayed_ = 0;  ///< how far the touch under way went from its start
};

}  // namespace touchpanel

#include "calibration/AdditionStyle.h"

#include <algorithm>
#include <cmath>

namespace touchpanel {
namespace {

// A capital letter is 0.72 of the font's size. 20 mm on a diagonal of 1388 mm (55 inches) makes letters of 14 mm,
// which from 3 m are seen under 16 minutes of arc: the least that ergonomics asks for. People stand back from a
// screen by its size, so the share of the diagonal holds for others, but for small ones that are held in the hand.
constexpr double kOfDiagonal = 20.0 / 1388;
constexpr double kLeastTextMillimetres = 4;
constexpr double kLeastTextPoints = 14;
constexpr double kFingerMillimetres = 20;
constexpr double kFingerPoints = 40;
constexpr double kRingMillimetres = 12;
constexpr double kLeastRingPoints = 24;
/// Outermost targets lie a twentieth of the screen inside.
constexpr double kMostRing = 1.0 / 21;

}  // namespace

AdditionStyle AdditionStyle::of(const Size& size, const SurfaceScale& scale) {
  const auto& mm = scale.millimetres;
  const bool known = mm && mm->perPointX > 0 && mm->perPointY > 0;
  const double perX = known ? mm->perPointX : 1, perY = known ? mm->perPointY : 1;
  const auto width = static_cast<double>(size.width), height = static_cast<double>(size.height);
  const double share = std::hypot(width * perX, height * perY) * kOfDiagonal / perY;
  const double text = std::max(share, known ? kLeastTextMillimetres / perY : kLeastTextPoints);
  const double most = std::max(std::min(width, height) * kMostRing, kLeastRingPoints);
  const double ring = std::clamp(known ? kRingMillimetres / perY : kLeastRingPoints, kLeastRingPoints, most);
  const double finger = std::max(known ? kFingerMillimetres / std::min(perX, perY) : 0, kFingerPoints);
  const auto points = [](double length) { return static_cast<float>(length); };
  return {.textSize = std::round(points(text)),
          .stroke = std::max(points(text / 10), 1.5F),
          .markRadius = points(text * 0.6),
          .ringRadius = points(ring),
          .reach = points(finger),
          .margin = points(text / 4)};
}

StyledText AdditionStyle::text(const char* pattern, std::vector<TextNumber> numbers) const {
  return {pattern, "Arial", textSize, kInk, std::move(numbers)};
}

}  // namespace touchpanel

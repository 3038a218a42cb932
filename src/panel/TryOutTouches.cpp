#include "panel/TryOutTouches.h"

#include "providers/qt/QtScreen.h"

namespace touchpanel {
namespace {

QPointF toQt(Point point) { return {static_cast<double>(point.x), static_cast<double>(point.y)}; }

Point fromQt(QPointF point) { return {static_cast<float>(point.x()), static_cast<float>(point.y())}; }

QPolygonF toQt(const std::vector<Point>& points) {
  QPolygonF polygon;
  for (const auto& point : points) polygon.append(toQt(point));
  return polygon;
}

}  // namespace

TryOutTouches::TryOutTouches(TryOutSurface& surface, TryOut::Layout layout)
    : surface_(surface), tryOut_(layout) {
  surface_.onPlaced = [this] { place(); };
  surface_.onPress = [this](QPointF at, bool wasHeld) {
    place();
    tryOut_.press(fromQt(at), wasHeld);
    show();
  };
  surface_.onMove = [this](QPointF at) {
    tryOut_.move(fromQt(at));
    show();
  };
  surface_.onRelease = [this](QPointF at) {
    tryOut_.release(fromQt(at));
    show();
  };
  surface_.onCancel = [this] {
    tryOut_.cancel();
    show();
  };
}

/// The surface may outlive this, and hides when its window goes.
TryOutTouches::~TryOutTouches() {
  surface_.onPress = nullptr;
  surface_.onMove = surface_.onRelease = nullptr;
  surface_.onCancel = surface_.onPlaced = nullptr;
}

void TryOutTouches::place() {
  tryOut_.setSurface({static_cast<float>(surface_.width()), static_cast<float>(surface_.height())},
                     surfaceScaleOf(surface_));
  show();
}

void TryOutTouches::startOver() {
  tryOut_.clear();
  show();
}

void TryOutTouches::show() {
  surface_.setPicture(picture());
  if (onChange) onChange();
}

TryOutPicture TryOutTouches::picture() const {
  TryOutPicture picture;
  for (const auto& point : tryOut_.testPoints()) picture.testPoints.append(toQt(point));
  if (const auto marked = tryOut_.markedPoint()) picture.marked = toQt(*marked);
  for (std::size_t tap = 0; tap < tryOut_.taps().size(); ++tap) {
    const auto& [meant, landed] = tryOut_.taps()[tap];
    const auto& [wasHeld, drift] = tryOut_.manners()[tap];
    picture.taps.append({QLineF(toQt(meant), toQt(landed)), wasHeld, toQt(drift)});
  }
  picture.trail = toQt(tryOut_.trail());
  return picture;
}

}  // namespace touchpanel

#include "demo/tour/CalibrationPlay.h"

#include <QWindow>
#include <cmath>

#include "calibration/CalibrationGrid.h"
#include "contract/DriverProperties.h"
#include "demo/CalibrationOnScreen.h"

namespace touchpanel::demo {
namespace {

// On the red of a bull's eye, below the note that reaches into the one in the middle of the screen.
constexpr QPoint kBelowCentre{0, 2};
// On the OK button, beside its label.
constexpr QPoint kOkCorner{-30, -14};
// Farther than a finger that holds still may tremble, and not off the button.
constexpr QPoint kPull{20, 0};

// Past the outline of a region.
constexpr QPoint kInside{10, 10};

bool isGrey(QColor color) { return color.red() == color.green() && color.green() == color.blue(); }

}  // namespace

void CalibrationPlay::open(const char* button) {
  stage_.click(button);
  stage_.until([&] { return (surface_ = ViewSurface::shown()) != nullptr; }, "the full-screen window");
  stage_.until([&] { return surface_->windowHandle()->isExposed() && !surface_->image().isNull(); },
               "the full-screen window to be drawn");
  box_ = surface_->rect();
}

void CalibrationPlay::chooseRegion(double share) {
  const QSize size = (QSizeF(box_.size()) * share).toSize();
  const QPoint from(box_.width() / 8, box_.height() / 8);
  const QPoint to = from + QPoint(size.width(), size.height());
  takePicture("empty");
  stage_.input().moveTo(from.x(), from.y());
  stage_.input().pressLeft();
  stage_.input().moveTo(to.x(), to.y());
  const QColor untouched = drawnAt(from + kInside);
  stage_.until([&] { return drawnAt(from + kInside) != untouched && drawnAt(to - kInside) != untouched; },
               "the region to be drawn");
  takePicture("region");
  stage_.input().releaseLeft();
  box_ = QRect(QPoint(0, box_.height() - size.height()), size);
}

const CalibrationRun& CalibrationPlay::run() const {
  const auto* found = surface_ == nullptr ? nullptr : runOn(*surface_);
  require(found != nullptr, "the calibration's window has gone");
  return *found;
}

QColor CalibrationPlay::drawnAt(QPoint place) const {
  require(surface_ != nullptr, "the calibration's window has gone");
  return surface_->image().valid(place) ? surface_->image().pixelColor(place) : QColor();
}

void CalibrationPlay::takePicture(const std::string& state) { stage_.pictures().take(prefix_ + "-" + state); }

QPoint CalibrationPlay::targetPoint(int index) const {
  const auto place = static_cast<std::size_t>(index);
  const auto toPixel = [](float logical, int length) {
    return static_cast<int>(std::lround(static_cast<double>(logical) * length / kLogicalMaximum));
  };
  return box_.topLeft() + QPoint(toPixel(run().touches().fDspX[place], box_.width()),
                                 toPixel(run().touches().fDspY[place], box_.height()));
}

void CalibrationPlay::touchTarget(int index, int place) {
  const auto name = "target " + std::to_string(index + 1);
  stage_.until([&] { return run().touches().fDspX[static_cast<std::size_t>(index)] > 0; }, name);
  stage_.until([&] { return drawnAt(targetPoint(index) + kBelowCentre) == QColor(Qt::red); },
               name + " to be drawn");
  if (index == 0) takePicture("first");
  if (index == 12) takePicture("middle");
  stage_.click(surface_->mapToGlobal(targetPoint(place)));
  stage_.until([&] { return run().touches().iTouchIndex != index; }, "the touch of " + name + " to be taken");
}

void CalibrationPlay::touchAllTargets(std::optional<int> bounced) {
  const int targets = run().mode();
  for (int index = 0; index < targets; ++index) touchTarget(index, index == bounced ? index - 1 : index);
  stage_.until([&] { return run().isFinished() && run().fit() != nullptr; }, "the grid to be finished");
}

void CalibrationPlay::takeAgain(int target) {
  const auto& report = run().fit()->report();
  require(report.wrongTouches() == 1 && !report.all[static_cast<std::size_t>(target)].fits,
          "the bounced touch has no ring");
  stage_.until([&] { return surface_->isUpToDate(); }, "the ring to be drawn");
  takePicture("ring");
  stage_.click(surface_->mapToGlobal(targetPoint(target)));
  stage_.until([&] { return run().isCollecting(); }, "the ringed target to be shown");
  touchTarget(target, target);
  stage_.until([&] { return run().isFinished() && run().fit() != nullptr; }, "the grid to be finished again");
  require(run().fit()->report().wrongTouches() == 0, "a touch is still called wrong");
}

void CalibrationPlay::pressOk() {
  const QPoint ok = box_.topLeft() + QPoint(box_.width() / 2, box_.height() / 2);
  stage_.until([&] { return isGrey(drawnAt(ok + kOkCorner)); }, "the buttons");
  takePicture("finished");
  stage_.input().moveTo(ok.x(), ok.y());
  stage_.input().pressLeft();
  // A finger becomes a press once it is not held still any more; a mouse would drag a region.
  if (isForFinger(*surface_)) stage_.input().moveTo(ok.x() + kPull.x(), ok.y() + kPull.y());
  stage_.until([&] { return drawnAt(ok + kOkCorner) == QColor(Qt::red); }, "OK to be held");
  takePicture("ok-held");
  stage_.input().releaseLeft();
  stage_.until([] { return ViewSurface::shown() == nullptr; }, "the full-screen window to close");
}

}  // namespace touchpanel::demo

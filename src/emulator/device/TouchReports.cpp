#include "emulator/device/TouchReports.h"

#include <algorithm>

#include "emulator/device/ReportDescriptor.h"

namespace touchpanel::emulator {
namespace {

constexpr std::size_t kMultiTouchSize = 64;
constexpr std::size_t kFingerSize = 6;
constexpr std::uint8_t kTip = 1;

void append(std::vector<std::uint8_t>& report, std::uint32_t number) {
  report.push_back(static_cast<std::uint8_t>(number));
  report.push_back(static_cast<std::uint8_t>(number >> 8));
}

void append(std::vector<std::uint8_t>& report, firmware::RawPoint point) {
  append(report, static_cast<std::uint32_t>(point.x));
  append(report, static_cast<std::uint32_t>(point.y));
}

}  // namespace

std::vector<std::uint8_t> TouchReports::touch(std::size_t finger, firmware::RawPoint point,
                                              std::uint16_t scanTime) {
  Finger& touched = fingers_[finger];
  if (!touched.down) touched.order = ++arrivals_;
  touched.down = true;
  touched.point = point;
  return current(scanTime);
}

std::vector<std::uint8_t> TouchReports::lift(std::size_t finger, std::uint16_t scanTime) {
  Finger& lifted = fingers_[finger];
  if (!lifted.down) return {};
  lifted.down = false;
  lifted.leaving = true;
  std::vector<std::uint8_t> report = current(scanTime);
  lifted.leaving = false;
  return report;
}

std::vector<std::uint8_t> TouchReports::current(std::uint16_t scanTime) const {
  return style_ == ReportStyle::MultiTouch ? multiTouch(scanTime) : singleTouch();
}

void TouchReports::reset() { fingers_ = {}; }

std::vector<std::uint8_t> TouchReports::multiTouch(std::uint16_t scanTime) const {
  std::vector<std::uint8_t> report = {kTouchReport};
  report.reserve(kMultiTouchSize);
  std::uint8_t count = 0;
  for (std::size_t id = 0; id < kFingers; ++id) {
    const Finger& finger = fingers_[id];
    if (!finger.down && !finger.leaving) continue;
    report.push_back(finger.down ? kTip : 0);
    report.push_back(static_cast<std::uint8_t>(id));
    append(report, finger.point);
    ++count;
  }
  report.resize(1 + kFingers * kFingerSize);
  append(report, scanTime);
  report.push_back(count);
  return report;
}

std::vector<std::uint8_t> TouchReports::singleTouch() const {
  // Of several fingers the first is reported until it has left. A later one is not jumped to before all earlier ones
  // have left.
  const Finger* first = nullptr;
  for (const Finger& finger : fingers_) {
    if ((finger.down || finger.leaving) && (!first || finger.order < first->order)) first = &finger;
  }
  std::vector<std::uint8_t> report = {static_cast<std::uint8_t>(first && first->down ? kTip : 0)};
  append(report, first ? first->point : firmware::RawPoint{});
  return report;
}

std::span<const std::uint8_t> reportDescriptor(ReportStyle style) {
  static const std::vector<std::uint8_t> multiTouch =
      multiTouchDescriptor(kFingers, kTouchReport, kContactCountMaximumReport);
  static const std::vector<std::uint8_t> singleTouch = singleTouchDescriptor();
  return style == ReportStyle::MultiTouch ? multiTouch : singleTouch;
}

}  // namespace touchpanel::emulator

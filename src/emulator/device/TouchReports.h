#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "firmware/TouchSurface.h"

namespace touchpanel::emulator {

/// Fingers that one touchscreen distinguishes; ids are 0..kFingers-1.
inline constexpr std::size_t kFingers = 10;

/// How a touchscreen reports touches.
enum class ReportStyle {
  MultiTouch,  ///< every finger with a contact id in one report
  SingleTouch  ///< one finger, no contact id
};

/// The numbers of the reports of the multi-touch style; the single-touch style has one report and no number.
inline constexpr std::uint8_t kTouchReport = 1;
inline constexpr std::uint8_t kContactCountMaximumReport = 2;

/// The HID report descriptor of a style.
std::span<const std::uint8_t> reportDescriptor(ReportStyle style);

/// The fingers on the glass of one touchscreen, and their HID input reports.
///
/// MultiTouch, 64 bytes, little-endian; a finger that has just left is reported once more, without its tip bit:
///
///     0    1                                        61         63
///     +----+----------------------------------------+----------+---------+
///     | 1  | 10 x { tip, contact id, x(2), y(2) }   | scan (2) | count   |
///     +----+----------------------------------------+----------+---------+
///
/// SingleTouch, 5 bytes: { tip, x(2), y(2) } of the finger that came first.
class TouchReports {
 public:
  explicit TouchReports(ReportStyle style) : style_(style) {}

  /// A finger comes or moves, `finger` below kFingers. `scanTime` is in units of 100 microseconds and wraps.
  std::vector<std::uint8_t> touch(std::size_t finger, firmware::RawPoint point, std::uint16_t scanTime);
  /// A finger leaves; the report is empty for one that is not there.
  std::vector<std::uint8_t> lift(std::size_t finger, std::uint16_t scanTime);
  /// The report that a host gets on request.
  std::vector<std::uint8_t> current(std::uint16_t scanTime) const;
  /// The device has lost its power.
  void reset();

 private:
  struct Finger {
    bool down = false;
    bool leaving = false;
    std::uint64_t order = 0;
    firmware::RawPoint point;
  };

  std::vector<std::uint8_t> multiTouch(std::uint16_t scanTime) const;
  std::vector<std::uint8_t> singleTouch() const;

  ReportStyle style_;
  std::array<Finger, kFingers> fingers_{};
  std::uint64_t arrivals_ = 0;
};

}  // namespace touchpanel::emulator

#include "app/EarlierCalibrations.h"

#include <algorithm>
#include <ranges>

#include "history/TouchscreenKey.h"

namespace touchpanel {
namespace {

template <typename Predicate>
const CalibrationRecord* newest(const std::vector<CalibrationRecord>& records, const Predicate& holds) {
  const auto reversed = records | std::views::reverse;
  const auto found = std::ranges::find_if(reversed, holds);
  return found == reversed.end() ? nullptr : &*found;
}

}  // namespace

CalibrationHistory::Contents EarlierCalibrations::of(const Dictionary& entry) const {
  return history_.read(touchscreenKeyOf(entry));
}

Status EarlierCalibrations::keep(const Dictionary& entry, const _DEVICT_CONTEXT& before,
                                 CalibrationRecord record) {
  record.time = clock_.now();
  return history_.keep(touchscreenKeyOf(entry), before, record);
}

const CalibrationRecord* acceptedIn(const std::vector<CalibrationRecord>& records, const Dictionary& entry) {
  const auto held = contextOf(entry);
  return newest(records, [&](const CalibrationRecord& record) {
    return record.event == CalibrationEvent::Accepted && isSameCalibration(record.context, held);
  });
}

const CalibrationRecord* discardedByReset(const std::vector<CalibrationRecord>& records,
                                          const Dictionary& entry) {
  const bool wasReset = !records.empty() && records.back().event == CalibrationEvent::Reset &&
                        contextOf(entry).DeviceConfig.CalibrateStatus == 0;
  if (!wasReset) return nullptr;
  return newest(records, [](const CalibrationRecord& record) { return record.isCalibrated(); });
}

}  // namespace touchpanel

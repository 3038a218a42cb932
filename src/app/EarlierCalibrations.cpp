#include "app/EarlierCalibrations.h"

#include <algorithm>

#include "history/TouchscreenKey.h"
#include "platform/HexText.h"

namespace touchpanel {
namespace {

template <typename Predicate>
const CalibrationRecord* newest(const std::vector<CalibrationRecord>& records, const Predicate& holds) {
  const auto found = std::find_if(records.rbegin(), records.rend(), holds);
  return found == records.rend() ? nullptr : &*found;
}

}  // namespace

CalibrationHistory::Contents EarlierCalibrations::of(const Dictionary& entry) const {
  return history_.read(touchscreenKeyOf(entry));
}

Status EarlierCalibrations::keep(const Dictionary& entry, const _DEVICT_CONTEXT& before,
                                 CalibrationRecord record) {
  record.time = clock_.now();
  const auto key = touchscreenKeyOf(entry);
  if (history_.read(key).isDamaged) diagnostics_.line("history: part of " + key + " could not be read");
  const auto status = history_.keep(key, before, record);
  if (status != kSuccess) diagnostics_.line("history: not kept, status 0x" + hexText(status));
  return status;
}

void EarlierCalibrations::noteWritten(const Dictionary& entry, const _DEVICT_CONTEXT& context,
                                      const WriteOutcome& written) {
  history_.noteWritten(touchscreenKeyOf(entry), context, writtenStateOf(written));
}

WrittenState writtenStateOf(const WriteOutcome& written) {
  switch (written.kind) {
    case WriteOutcome::Kind::Written:
      return WrittenState::Yes;
    case WriteOutcome::Kind::NotWritten:
      return WrittenState::No;
    case WriteOutcome::Kind::PartlyWritten:
      return WrittenState::Partly;
    default:
      return WrittenState::Unknown;
  }
}

std::optional<CalibrationFit> keptFit(const FitReport& report, const Size& screen) {
  if (!report.isSolved || report.count == 0) return std::nullopt;
  CalibrationFit fit{.targets = static_cast<std::int32_t>(report.count),
                     .pixels = report.pixels,
                     .millimetres = report.millimetres,
                     .screen = screen};
  for (const auto& touch : report.touches()) fit.touches.push_back(touch.units);
  return fit;
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

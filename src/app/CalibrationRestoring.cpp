#include "app/CalibrationRestoring.h"

namespace touchpanel {
namespace {

/// The configuration and the polynomials of `record`, and what else the device says of itself as it is now: its
/// firmware may be another by now. After a reset the entry does not know these any more, but the record does.
_DEVICT_CONTEXT restored(const _DEVICT_CONTEXT& now, const CalibrationRecord& record) {
  constexpr _DEVICT_CONTEXT kCleared{};
  if (imageOf(now) == imageOf(kCleared)) return record.context;
  auto context = now;
  context.DeviceConfig = record.context.DeviceConfig;
  context.CalibParams = record.context.CalibParams;
  return context;
}

}  // namespace

void CalibrationRestoring::restore(const DeviceEntry& entry, const CalibrationRecord& record) {
  const auto handle = registryObjectOf(*entry, entry_key::kHandle);
  const auto before = contextOf(*entry);
  const auto context = restored(before, record);
  const bool isCalibrated = record.isCalibrated();
  const Status driver =
      isCalibrated ? driver_.calibrationSaved(handle, context.CalibParams) : driver_.resetCalibration(handle);
  const auto written = store_.save(entry->integer(entry_key::kProductID),
                                   entry->integer(entry_key::kDeviceInterface), context);
  entry->set(entry_key::kCalibrateStatus, isCalibrated ? entry_key::kYes : entry_key::kNo);
  storeContext(*entry, context);
  controller_.reloadTableViewData();
  const auto attempt = isCalibrated ? WriteAttempt::Restore : WriteAttempt::Reset;
  writes_.report(entry, before, {.event = CalibrationEvent::Restored, .context = context, .fit = record.fit},
                 written, sentenceOf(attempt, entry->text(entry_key::kSN), written, driver));
}

}  // namespace touchpanel

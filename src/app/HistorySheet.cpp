#include "app/HistorySheet.h"

#include <algorithm>
#include <utility>

#include "platform/Translatable.h"

namespace touchpanel {
namespace {

constexpr int kHistoryReturnCode = 0;

}  // namespace

void HistorySheet::open() {
  if (!state_.hasSelection()) return ports_.statusLine.show(kNoDeviceSelected);
  entry_ = state_.currentDict;
  auto contents = earlier_.of(*entry_);
  std::ranges::reverse(contents.records);
  shown_ = {entry_->text(entry_key::kSN), std::move(contents.records), {}, contents.isDamaged};
  const auto held = contextOf(*entry_);
  const auto inUse = std::ranges::find_if(shown_.records, [&](const CalibrationRecord& record) {
    return isSameCalibration(record.context, held);
  });
  if (inUse != shown_.records.end()) shown_.inUse = static_cast<std::size_t>(inUse - shown_.records.begin());
  ports_.view.show(shown_);
  ports_.sheets.begin(ports_.sheet, ports_.parent);
}

void HistorySheet::close() {
  entry_.reset();
  ports_.sheet.orderOut();
  ports_.sheets.end(ports_.sheet, kHistoryReturnCode);
}

void HistorySheet::restore(std::size_t row) {
  if (!entry_ || row >= shown_.records.size()) return;
  const auto entry = entry_;
  close();
  if (!isListed(entry))
    return ports_.statusLine.show(
        {TRANSLATABLE_TEXT("StatusLine", "%1 is not connected any more; nothing was restored."),
         entry->text(entry_key::kSN)});
  restoring_.restore(entry, shown_.records[row]);
}

void HistorySheet::undoReset() {
  if (!state_.hasSelection()) return ports_.statusLine.show(kNoDeviceSelected);
  const auto entry = state_.currentDict;
  const auto history = earlier_.of(*entry);
  const auto* discarded = discardedByReset(history.records, *entry);
  if (discarded == nullptr)
    return ports_.statusLine.show(
        {TRANSLATABLE_TEXT("StatusLine", "There is no reset of %1 to undo."), entry->text(entry_key::kSN)});
  restoring_.restore(entry, *discarded);
}

bool HistorySheet::isListed(const DeviceEntry& entry) const {
  return std::ranges::find(state_.deviceListArray, entry) != state_.deviceListArray.end();
}

}  // namespace touchpanel

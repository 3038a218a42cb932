#include "app/CalibrationWrites.h"

#include <algorithm>

namespace touchpanel {

void CalibrationWrites::report(const DeviceEntry& entry, const _DEVICT_CONTEXT& before,
                               CalibrationRecord record, const WriteOutcome& written,
                               const StatusMessage& sentence) {
  note(entry, record.context, written);
  record.written = writtenStateOf(written);
  const Status kept = earlier_.keep(*entry, before, record);
  const bool wentWell = sentence.reason.empty();
  statusLine_.show(kept != kSuccess && wentWell ? sentenceOfUnkept(record, sentence.device, kept) : sentence);
}

void CalibrationWrites::note(const DeviceEntry& entry, const _DEVICT_CONTEXT& context,
                             const WriteOutcome& written) {
  std::erase_if(pending_, [&](const Pending& pending) { return pending.entry == entry; });
  if (written.isWritten()) entry->remove(entry_key::kUnreadBlocks);
  if (!written.isWritten()) pending_.push_back({entry, context});
  update();
}

void CalibrationWrites::repeat() {
  update();
  if (pending_.empty()) return;
  const auto [entry, context] = pending_.back();
  const auto written = store_.save(entry->integer(entry_key::kProductID),
                                   entry->integer(entry_key::kDeviceInterface), context);
  note(entry, context, written);
  earlier_.noteWritten(*entry, context, written);
  statusLine_.show(sentenceOf(WriteAttempt::Repetition, entry->text(entry_key::kSN), written));
}

void CalibrationWrites::update() {
  const auto& list = state_.deviceListArray;
  std::erase_if(pending_, [&](const Pending& pending) {
    return std::find(list.begin(), list.end(), pending.entry) == list.end();
  });
  outlets_.btnRepeatWrite.setEnabled(!pending_.empty());
}

}  // namespace touchpanel

#include "history/CalibrationHistory.h"

#include <optional>
#include <utility>

#include "history/RecordCoding.h"

namespace touchpanel {
namespace {

constexpr char kFormatKey[] = "Format", kVersionKey[] = "Version", kNameKey[] = "Name",
               kRecordsKey[] = "Records";
constexpr char kFormat[] = "touchpanel calibration history";
constexpr std::int32_t kVersion = 1;

/// The stored records, as they are; nothing when the file is not this touchscreen's history.
std::optional<Array> recordsIn(const Dictionary& file, const std::string& key) {
  const auto* records = file.array(kRecordsKey);
  const bool isOurs = records != nullptr && file.text(kFormatKey) == kFormat &&
                      file.integer(kVersionKey) == kVersion && file.text(kNameKey) == key;
  if (!isOurs) return std::nullopt;
  return *records;
}

std::optional<CalibrationRecord> newestOf(const Array& stored) {
  std::optional<CalibrationRecord> newest;
  for (const auto& record : stored)
    if (auto decoded = decodedRecord(record)) newest = std::move(decoded);
  return newest;
}

bool isAsFound(const Value& stored) {
  const auto record = decodedRecord(stored);
  return record && record->event == CalibrationEvent::AsFound;
}

/// Drops the oldest; what the touchscreen was found with stays in front of them.
void dropOldest(Array& stored) {
  if (stored.empty()) return;
  const auto first = stored.begin() + (isAsFound(stored.front()) ? 1 : 0);
  const auto count = static_cast<std::size_t>(stored.end() - first);
  if (count > CalibrationHistory::kKept)
    stored.erase(first, first + static_cast<std::ptrdiff_t>(count - CalibrationHistory::kKept));
}

}  // namespace

CalibrationHistory::CalibrationHistory(PropertyListFiles& files, std::string directory)
    : files_(files), directory_(std::move(directory)) {}

std::string CalibrationHistory::pathOf(const std::string& key) const {
  return directory_ + '/' + key + ".plist";
}

CalibrationHistory::Contents CalibrationHistory::read(const std::string& key) const {
  Status status = kSuccess;
  const auto file = files_.read(pathOf(key), status);
  if (!file) return {.isDamaged = status != kErrorNotFound};
  const auto stored = recordsIn(*file, key);
  if (!stored) return {.isDamaged = true};
  Contents contents;
  for (const auto& each : *stored) {
    if (auto record = decodedRecord(each))
      contents.records.push_back(std::move(*record));
    else
      contents.isDamaged = true;
  }
  return contents;
}

Status CalibrationHistory::keep(const std::string& key, const _DEVICT_CONTEXT& before,
                                const CalibrationRecord& record) {
  Status status = kSuccess;
  const auto file = files_.read(pathOf(key), status);
  auto stored = file ? recordsIn(*file, key) : Array();
  if (!stored) return kErrorUnsupported;
  const auto newest = newestOf(*stored);
  if (!newest || !isSameCalibration(newest->context, before))
    stored->push_back(encodedRecord(
        {.time = record.time,
         .event = status == kErrorNotFound ? CalibrationEvent::AsFound : CalibrationEvent::Replaced,
         .context = before}));
  stored->push_back(encodedRecord(record));
  dropOldest(*stored);
  return write(key, std::move(*stored));
}

Status CalibrationHistory::noteWritten(const std::string& key, const _DEVICT_CONTEXT& context,
                                       WrittenState written) {
  const auto file = files_.read(pathOf(key));
  auto stored = file ? recordsIn(*file, key) : std::nullopt;
  auto newest = stored && !stored->empty() ? decodedRecord(stored->back()) : std::nullopt;
  if (!newest || !isSameCalibration(newest->context, context)) return kErrorNotFound;
  newest->written = written;
  stored->back() = encodedRecord(*newest);
  return write(key, std::move(*stored));
}

Status CalibrationHistory::write(const std::string& key, Array stored) {
  return files_.writeAtomically(
      pathOf(key),
      {{kFormatKey, kFormat}, {kVersionKey, kVersion}, {kNameKey, key}, {kRecordsKey, std::move(stored)}});
}

}  // namespace touchpanel

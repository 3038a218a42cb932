#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "history/CalibrationRecord.h"
#include "platform/PropertyListFiles.h"

namespace touchpanel {

/// The earlier calibrations of each touchscreen, one file to a touchscreen in a directory of their own.
///
///     Format   "touchpanel calibration history"
///     Version  1
///     Name     the touchscreen's key, which is also the file's name
///     Records  array of records (RecordCoding.h), oldest first
///
/// Files are read anew for every question and replaced whole: of two programs that keep something at the same
/// moment the last one wins, and none leaves a broken file. Every call blocks for the time of the disk.
class CalibrationHistory {
 public:
  /// Records that are kept of a touchscreen, beside what it was found with.
  static constexpr std::size_t kKept = 20;

  struct Contents {
    std::vector<CalibrationRecord> records = {};  ///< oldest first
    /// The file or one of its records could not be read, or is not what it should be.
    bool isDamaged = false;
  };

  CalibrationHistory(PropertyListFiles& files, std::string directory);

  /// `key` is a touchscreenKeyOf(). Empty for a touchscreen that nothing was kept of.
  Contents read(const std::string& key) const;

  /// Adds `record`, and in front of it what the touchscreen held before, as `before`, unless the newest
  /// record holds that already. A record that cannot be read stays in its place; a file that cannot is
  /// copied to "NAME.unreadable" beside the new one. Errors, with the file as it was: kErrorUnsupported when
  /// it belongs to something else, and those of writing a file.
  Status keep(const std::string& key, const _DEVICT_CONTEXT& before, const CalibrationRecord& record);

  /// Corrects what the newest record says of its write, when `context` is what it holds: the write was repeated.
  /// kErrorNotFound, with the file as it was, when it holds something else.
  Status noteWritten(const std::string& key, const _DEVICT_CONTEXT& context, WrittenState written);

 private:
  std::string pathOf(const std::string& key) const;
  Status write(const std::string& key, Array stored);

  PropertyListFiles& files_;
  std::string directory_;
};

}  // namespace touchpanel

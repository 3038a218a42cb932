#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <string>

#include "driver/HidSystem.h"
#include "platform/FileWorker.h"
#include "platform/OutageReport.h"
#include "platform/PropertyListFiles.h"
#include "platform/TouchscreenIdentity.h"

namespace touchpanel::driver {

/// The service's state in one directory: a property-list file for each touchscreen, one for the settings in force and
/// one for the double-click settings.
///
/// What is saved is known at once and written by the worker, one file after another. A file that is saved again
/// before its turn is written once, with the newest contents; one that is saved unchanged is not written. A failed
/// write is repeated when its file is saved the next time.
class StateStore {
 public:
  using Done = std::function<void(Status)>;

  /// Nothing is owned. The directory must exist; `files` is used by the worker, too.
  StateStore(PropertyListFiles& files, FileWorker& worker, std::string directory, Diagnostics& diagnostics);
  /// Waits until everything is written.
  ~StateStore();
  StateStore(const StateStore&) = delete;
  StateStore& operator=(const StateStore&) = delete;

  /// Empty when nothing is known. The first call for a touchscreen waits for the disk. What an earlier release kept
  /// under the location is taken over, once.
  Dictionary load(const TouchscreenIdentity& identity);
  void save(const TouchscreenIdentity& identity, const Dictionary& state);
  /// What load() returned amounts to `state`: it is not written until it changes.
  void understood(const TouchscreenIdentity& identity, const Dictionary& state);
  /// Only `state` is sound of what load() returned. It is saved, and the file kept as "NAME.damaged"; one that cannot
  /// be renamed stays as it is.
  void understoodInPart(const TouchscreenIdentity& identity, const Dictionary& state);
  Dictionary loadSettings() { return fileAt(settingsPath()).contents; }
  void saveSettings(const Dictionary& settings) { save(settingsPath(), settings); }
  /// Leaves `hidSystem` as it is where nothing acceptable is known.
  void load(HidSystem& hidSystem);
  void save(const HidSystem& hidSystem);

  /// How often something was saved that was not on disk.
  std::uint64_t saves() const { return saves_; }
  /// Calls `done` as soon as everything saved so far has been written, at once when nothing is left to write.
  /// Its status is the error of a write that failed: kErrorNoSpace, kErrorNotPermitted, kErrorInputOutput,
  /// kErrorNotFound without the directory.
  void whenDurable(Done done);

 private:
  struct File {
    Dictionary contents;
    Status written = kSuccess;  ///< of the last write
    bool queued = false;
  };
  struct Waiter {
    std::uint64_t turn;  ///< the last one that it waits for
    Status status;
    Done done;
  };

  std::string pathOf(const TouchscreenIdentity& identity) const;
  std::string settingsPath() const { return directory_ + "/settings.plist"; }
  std::string hidSystemPath() const { return directory_ + "/double-click.plist"; }
  File& fileAt(const std::string& path, const std::string& formerPath = {});
  void save(const std::string& path, const Dictionary& contents);
  void writeNext();
  void finishTurn(Status status);

  PropertyListFiles& files_;
  FileWorker& worker_;
  std::string directory_;
  Diagnostics& diagnostics_;
  OutageReport outage_;
  std::map<std::string, File> known_;  ///< by path
  std::deque<std::string> queue_;      ///< paths; the first one's turn is under way
  std::uint64_t turnsDone_ = 0;
  std::uint64_t saves_ = 0;
  std::deque<Waiter> waiters_;  ///< by turn
};

}  // namespace touchpanel::driver

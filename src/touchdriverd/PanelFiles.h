#pragma once

#include <string>
#include <utility>

#include "config/DataSet.h"
#include "platform/FileWorker.h"

namespace touchpanel::driver {

/// The control panel's two files, written for those who may configure touchscreens but may not write the files' directory.
class PanelFiles {
 public:
  /// Neither reference is owned; `files` is used by the worker and must live longer than it.
  PanelFiles(PropertyListFiles& files, FileWorker& worker, std::string directory)
      : files_(files),
        worker_(worker),
        directory_(std::move(directory)),
        paths_(ConfigPaths::in(directory_)) {}

  /// Writes `contents` to the file called `name`, as the control panel would, and calls `done` when the disk has it.
  /// kErrorUnsupported for another name, kErrorBadArgument for contents that this file never has; other errors are those
  /// of the write.
  void write(const std::string& name, const Dictionary& contents, FileWorker::Done done);

 private:
  void writeSettings(const Dictionary& contents, FileWorker::Done done);
  void writeCalibration(const Dictionary& contents, FileWorker::Done done);

  PropertyListFiles& files_;
  FileWorker& worker_;
  std::string directory_;
  ConfigPaths paths_;
};

}  // namespace touchpanel::driver

#pragma once

#include <functional>
#include <string>
#include <string_view>

#include <sys/types.h>

#include "providers/files/FileCalls.h"

namespace touchpanel::files {

/// A file that did not exist before, open for writing. It disappears again unless it is kept or moved. Each step
/// returns false when it failed, with the reason in errno.
class NewFile {
 public:
  /// Takes the first free one of up to 100 names: nameOf(0), nameOf(1) ... Never follows a link.
  NewFile(const std::function<std::string(int)>& nameOf, FileCalls& calls);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  bool exists() const { return exists_; }
  bool fill(std::string_view contents);
  bool takePermissions(mode_t mode) { return calls_.fchmod(file_, mode) == 0; }
  /// Has everything on the disk, and closes the file.
  bool finish();
  bool moveTo(const std::string& target);
  void keep() { exists_ = false; }

 private:
  FileCalls& calls_;
  std::string name_;
  int file_ = -1;
  bool exists_ = false;
};

}  // namespace touchpanel::files

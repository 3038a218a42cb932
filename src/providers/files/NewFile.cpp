#include "providers/files/NewFile.h"

#include <cerrno>

#include <fcntl.h>

namespace touchpanel::files {

namespace {
constexpr mode_t kNewFileMode = 0666;
constexpr int kNameAttempts = 100;
}  // namespace

NewFile::NewFile(const std::function<std::string(int)>& nameOf, FileCalls& calls) : calls_(calls) {
  for (int attempt = 0; attempt < kNameAttempts && file_ < 0; ++attempt) {
    name_ = nameOf(attempt);
    file_ = calls_.open(name_, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kNewFileMode);
    if (file_ < 0 && errno != EEXIST) break;
  }
  exists_ = file_ >= 0;
}

NewFile::~NewFile() {
  if (file_ >= 0) calls_.close(file_);
  if (exists_) calls_.unlink(name_);
}

bool NewFile::fill(std::string_view contents) {
  while (!contents.empty()) {
    const auto written = calls_.write(file_, contents.data(), contents.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    contents.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool NewFile::finish() {
  const bool synced = calls_.fsync(file_) == 0;
  const bool closed = calls_.close(file_) == 0;
  file_ = -1;
  return synced && closed;
}

bool NewFile::moveTo(const std::string& target) {
  if (calls_.rename(name_, target) != 0) return false;
  exists_ = false;
  return true;
}

}  // namespace touchpanel::files

#include "providers/process/UserDirectories.h"

#include <cstdlib>

#include <pwd.h>
#include <unistd.h>

namespace touchpanel {
namespace {

/// Only an absolute path says where a directory is.
std::string absolutePath(const char* path) { return path != nullptr && *path == '/' ? path : ""; }

std::string homeDirectory() {
  if (auto home = absolutePath(std::getenv("HOME")); !home.empty()) return home;
  const auto* user = ::getpwuid(::getuid());
  auto home = user == nullptr ? std::string() : absolutePath(user->pw_dir);
  return home.empty() ? "/nonexistent" : home;
}

}  // namespace

std::string userStateDirectory() {
  if (auto directory = absolutePath(std::getenv("XDG_STATE_HOME")); !directory.empty()) return directory;
  return homeDirectory() + "/.local/state";
}

}  // namespace touchpanel

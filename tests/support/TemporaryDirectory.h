#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include <unistd.h>

namespace touchpanel::testing {

/// An empty directory that goes away with everything in it.
class TemporaryDirectory {
 public:
  TemporaryDirectory() {
    std::string name = (std::filesystem::temp_directory_path() / "touchpanel-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary directory");
    path_ = name;
  }
  ~TemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  std::string path() const { return path_.string(); }
  std::string file(std::string_view name) const { return (path_ / name).string(); }
  void write(std::string_view name, std::string_view contents) const {
    std::ofstream(path_ / name, std::ios::binary)
        .write(contents.data(), static_cast<std::streamsize>(contents.size()));
  }
  std::string read(std::string_view name) const {
    std::ifstream stream(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  /// Names of everything inside, hidden files too.
  std::vector<std::string> names() const {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
      found.push_back(entry.path().filename().string());
    return found;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace touchpanel::testing

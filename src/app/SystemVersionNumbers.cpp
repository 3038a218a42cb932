#include "app/SystemVersionNumbers.h"

#include <optional>
#include <string>

namespace touchpanel {
namespace {

constexpr std::int32_t kLastPackedVersion = 0x103F;

struct VersionNumbers {
  std::uint32_t major = 0;
  std::uint32_t minor = 0;
  std::uint32_t bugFix = 0;
};

/// Asks the selectors one by one and keeps the first error.
class VersionQuery {
 public:
  explicit VersionQuery(SystemVersion& system) : system_(system) {}

  std::uint32_t ask(VersionSelector selector) {
    if (failed()) return 0;
    std::int32_t response = 0;
    error_ = static_cast<std::int16_t>(system_.query(selector, response));
    return failed() ? 0 : static_cast<std::uint32_t>(response);
  }
  bool failed() const { return error_ != 0; }
  std::int16_t error() const { return error_; }

 private:
  SystemVersion& system_;
  std::int16_t error_ = 0;
};

VersionNumbers unpacked(std::uint32_t value) {
  return {((value & 0xF000U) >> 12U) * 10 + ((value & 0x0F00U) >> 8U), 0, value & 0x000FU};
}

VersionNumbers versionNumbers(VersionQuery& query) {
  const auto packed = query.ask(VersionSelector::Sysv);
  if (query.failed()) return {};
  if (static_cast<std::int32_t>(packed) <= kLastPackedVersion) return unpacked(packed);
  const auto major = query.ask(VersionSelector::Sys1);
  const auto minor = query.ask(VersionSelector::Sys2);
  const auto bugFix = query.ask(VersionSelector::Sys3);
  if (query.failed()) return {};
  return {major, minor, bugFix};
}

}  // namespace

void getSystemVersion(SystemVersion& system, Diagnostics& diagnostics, std::uint32_t* major,
                      std::uint32_t* minor, std::uint32_t* bugFix) {
  VersionQuery query(system);
  const auto numbers = versionNumbers(query);
  if (query.failed()) diagnostics.line("Unable to obtain system version: " + std::to_string(query.error()));
  if (major) *major = numbers.major;
  if (minor) *minor = numbers.minor;
  if (bugFix) *bugFix = numbers.bugFix;
}

}  // namespace touchpanel

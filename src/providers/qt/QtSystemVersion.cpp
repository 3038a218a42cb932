#include "providers/qt/QtSystemVersion.h"

#include <QSysInfo>
#include <QVersionNumber>
#include <algorithm>

namespace touchpanel {
namespace {

/// The packed form has room for one digit each of minor and bug-fix. From this value on whoever asks goes on
/// to ask for the exact numbers, so smaller versions are reported as this one.
constexpr std::int32_t kExactNumbersAvailable = 0x1040;

std::int32_t packed(const QVersionNumber& version) {
  const int major = std::min(version.majorVersion(), 99);
  const auto digit = [](int number) { return std::min(number, 9); };
  const int bcd =
      major / 10 << 12 | major % 10 << 8 | digit(version.minorVersion()) << 4 | digit(version.microVersion());
  return std::max(bcd, kExactNumbersAvailable);
}

}  // namespace

Status QtSystemVersion::query(VersionSelector selector, std::int32_t& response) {
  auto version = QVersionNumber::fromString(QSysInfo::productVersion());
  if (version.isNull()) version = QVersionNumber::fromString(QSysInfo::kernelVersion());
  if (version.isNull()) return kErrorUnsupported;
  switch (selector) {
    case VersionSelector::Sysv:
      response = packed(version);
      break;
    case VersionSelector::Sys1:
      response = version.majorVersion();
      break;
    case VersionSelector::Sys2:
      response = version.minorVersion();
      break;
    case VersionSelector::Sys3:
      response = version.microVersion();
      break;
  }
  return kSuccess;
}

}  // namespace touchpanel

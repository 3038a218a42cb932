#pragma once

#include <cstdint>

#include "platform/Status.h"

namespace touchpanel {

/// Selectors of the system version query.
enum class VersionSelector { Sysv, Sys1, Sys2, Sys3 };

/// Answers the system's version numbers.
class SystemVersion {
 public:
  virtual ~SystemVersion() = default;
  /// Sets `response` for `selector`: Sysv packs the version as binary-coded decimal in the low 16 bits, Sys1
  /// to Sys3 are major, minor and bug-fix. Only the low 16 bits of the status tell success.
  virtual Status query(VersionSelector selector, std::int32_t& response) = 0;
};

}  // namespace touchpanel

#pragma once

#include "platform/SystemVersion.h"

namespace touchpanel {

/// The operating system's version: the distribution's where it has a number, else the kernel's.
class QtSystemVersion final : public SystemVersion {
 public:
  Status query(VersionSelector selector, std::int32_t& response) override;
};

}  // namespace touchpanel

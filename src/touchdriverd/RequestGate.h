#pragma once

#include <cstddef>
#include <memory>

#include <sdbus-c++/sdbus-c++.h>

struct sd_bus_slot;

namespace touchpanel::driver {

/// The largest request of ours, a whole driver configuration file, has some 400 bytes of names and values.
inline constexpr std::size_t kLargestRequest = 4096;
inline constexpr int kDeepestRequest = 8;

/// Answers requests that are beyond these limits, or of types that the service's methods do not take, with the error
/// BadArgument before they are taken apart into values, which may be a hundred times as large. It copies nothing and
/// reads no further than the limits go. Types that are let through: b, y, i, u, x, d, s, and variants, arrays and
/// dictionaries of them.
class RequestGate {
 public:
  /// Stands before all objects of `connection`, and must be destroyed before it.
  explicit RequestGate(sdbus::IConnection& connection);

 private:
  struct Remove {
    void operator()(sd_bus_slot* slot) const;
  };
  std::unique_ptr<sd_bus_slot, Remove> filter_;
};

}  // namespace touchpanel::driver

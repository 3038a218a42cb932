#pragma once

#include <cstddef>

namespace touchpanel::testing {

/// Allocations that the calling thread has made with operator new so far. For tests that link to
/// touchpanel_allocation_count, which replaces that operator.
std::size_t allocationCount();
/// Those that it has not given back.
std::ptrdiff_t heldAllocations();

}  // namespace touchpanel::testing

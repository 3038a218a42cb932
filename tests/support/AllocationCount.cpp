#include "support/AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {
thread_local std::size_t allocations = 0;
}

// In a file of their own, so that the compiler cannot see through them and call the pairs mismatched.
void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size != 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace touchpanel::testing {

std::size_t allocationCount() { return allocations; }

}  // namespace touchpanel::testing

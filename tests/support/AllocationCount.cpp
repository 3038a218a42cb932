#include "support/AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {
thread_local std::size_t allocations = 0;
thread_local std::ptrdiff_t held = 0;
}  // namespace

// In a file of their own, so that the compiler cannot see through them and call the pairs mismatched.
void* operator new(std::size_t size) {
  ++allocations;
  ++held;
  if (void* memory = std::malloc(size != 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
  if (memory) --held;
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }

namespace touchpanel::testing {

std::size_t allocationCount() { return allocations; }
std::ptrdiff_t heldAllocations() { return held; }

}  // namespace touchpanel::testing

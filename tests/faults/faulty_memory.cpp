// Requests for memory, with the gate in front of each: the operators stand here in the place of the
// language's own, the heap's functions under the names that the linker gives them when the library
// and the tests call them. Behind the gate is the heap of the program, also that of a sanitizer.
#include <cstdlib>
#include <new>

#include "tests/faults/fault_gate.h"

extern "C" {

void* __real_malloc(size_t size);
void* __real_calloc(size_t count, size_t size);
void* __real_realloc(void* memory, size_t size);

void* __wrap_malloc(size_t size) {
  return flm_faults::Gate::FailsRequest() ? nullptr : __real_malloc(size);
}

void* __wrap_calloc(size_t count, size_t size) {
  return flm_faults::Gate::FailsRequest() ? nullptr : __real_calloc(count, size);
}

void* __wrap_realloc(void* memory, size_t size) {
  return flm_faults::Gate::FailsRequest() ? nullptr : __real_realloc(memory, size);
}
}

namespace {

void* Take(size_t size) {
  return flm_faults::Gate::FailsRequest() ? nullptr : __real_malloc(size == 0 ? 1 : size);
}

void* TakeOrThrow(size_t size) {
  void* const memory = Take(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(size_t size) { return TakeOrThrow(size); }
void* operator new[](size_t size) { return TakeOrThrow(size); }
void* operator new(size_t size, const std::nothrow_t&) noexcept { return Take(size); }
void* operator new[](size_t size, const std::nothrow_t&) noexcept { return Take(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, size_t) noexcept { std::free(memory); }

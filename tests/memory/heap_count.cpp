// The heap's own functions under other names, so that every request of the program and of its
// libraries passes here. The C library calls these too, for instance when it reads a folder.
#include "tests/memory/heap_count.h"

#include <malloc.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>

extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* memory, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
void __libc_free(void* memory);
}

namespace {

std::atomic<long> requests{0};
std::atomic<long> bytes{0};

long SizeOf(void* memory) { return static_cast<long>(malloc_usable_size(memory)); }

void* Counted(void* memory) {
  ++requests;
  bytes += SizeOf(memory);
  return memory;
}

}  // namespace

extern "C" {

void* malloc(size_t size) noexcept { return Counted(__libc_malloc(size)); }

void* calloc(size_t count, size_t size) noexcept { return Counted(__libc_calloc(count, size)); }

void* realloc(void* memory, size_t size) noexcept {
  const long before = SizeOf(memory);
  void* const moved = __libc_realloc(memory, size);
  if (moved == nullptr && size != 0) return nullptr;  // the old memory is still held
  bytes -= before;
  return Counted(moved);
}

void* memalign(size_t alignment, size_t size) noexcept {
  return Counted(__libc_memalign(alignment, size));
}

void* aligned_alloc(size_t alignment, size_t size) noexcept { return memalign(alignment, size); }

int posix_memalign(void** out, size_t alignment, size_t size) noexcept {
  void* const memory = memalign(alignment, size);
  if (memory == nullptr) return ENOMEM;
  *out = memory;
  return 0;
}

void free(void* memory) noexcept {
  bytes -= SizeOf(memory);
  __libc_free(memory);
}
}

namespace flm_test {

long HeapRequests() { return requests; }

long HeapBytes() { return bytes; }

}  // namespace flm_test

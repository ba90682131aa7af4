// The heap's own functions, defined here over those of libc: the program's definitions come first
// for every library of the process, so that the allocations inside scandir and opendir count too.
#include "bench/heap.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>

namespace {

std::atomic<bool> counting{false};
long allocations = 0;
long bytesInUse = 0;

void* Counted(void* block) {
  if (block != nullptr && counting.load(std::memory_order_relaxed)) {
    ++allocations;
    bytesInUse += static_cast<long>(malloc_usable_size(block));
  }
  return block;
}

void GivenBack(void* block) {
  if (block != nullptr && counting.load(std::memory_order_relaxed)) {
    bytesInUse -= static_cast<long>(malloc_usable_size(block));
  }
}

}  // namespace

extern "C" {

void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);
void __libc_free(void* block);

void* malloc(size_t size) noexcept { return Counted(__libc_malloc(size)); }

void* calloc(size_t count, size_t size) noexcept { return Counted(__libc_calloc(count, size)); }

void* realloc(void* block, size_t size) noexcept {
  GivenBack(block);
  return Counted(__libc_realloc(block, size));
}

void free(void* block) noexcept {
  GivenBack(block);
  __libc_free(block);
}
}

namespace flm::bench {

HeapCounter::HeapCounter() {
  allocations = 0;
  bytesInUse = 0;
  counting = true;
}

HeapCounter::~HeapCounter() { counting = false; }

long HeapCounter::Allocations() { return allocations; }

long HeapCounter::BytesInUse() { return bytesInUse; }

}  // namespace flm::bench

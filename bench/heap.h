// Counting what goes through the heap of this process, inside libc too.
#ifndef FILELISTMANAGEMENT_BENCH_HEAP_H
#define FILELISTMANAGEMENT_BENCH_HEAP_H

#include <cstddef>

namespace flm::bench {

// Counts from its making to its end; at most one at a time, on a single thread. Outside of it the
// heap runs at its usual speed, so that timed rows are not disturbed.
class HeapCounter {
 public:
  HeapCounter();
  ~HeapCounter();
  HeapCounter(const HeapCounter&) = delete;
  HeapCounter& operator=(const HeapCounter&) = delete;

  static long Allocations();  // malloc, calloc and realloc together
  static long BytesInUse();   // of the blocks made since, as large as the heap made them
};

}  // namespace flm::bench

#endif

// What the program asks of the heap: how often, and how much of it is held.
#ifndef FILELISTMANAGEMENT_TESTS_MEMORY_HEAP_COUNT_H
#define FILELISTMANAGEMENT_TESTS_MEMORY_HEAP_COUNT_H

#include <cstddef>

namespace flm_test {

// Requests for memory since the program began; giving back is none.
long HeapRequests();

// Bytes held now, as the heap rounds them up.
long HeapBytes();

}  // namespace flm_test

#endif

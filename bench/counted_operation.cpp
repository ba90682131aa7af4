// A source of its own: seen from its callers the function would be inlined or copied under other
// names, and not be found.
#include "bench/counted_operation.h"

#include <cstddef>

extern "C" void flm_counted_operation(const std::function<void()>& operation) {
  // libc fills and copies in steps that depend on where a buffer begins. From here on the stack
  // begins at a page, however long the environment and the arguments are that lie above it.
  constexpr size_t kPage = 4096;
  alignas(kPage) volatile bool ended = false;
  operation();
  ended = true;  // needs the stack until here, so that the call cannot become a jump out of it
  static_cast<void>(ended);
}

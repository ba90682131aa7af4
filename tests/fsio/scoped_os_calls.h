// Replacing calls to the operating system for the length of one test.
#ifndef FILELISTMANAGEMENT_TESTS_FSIO_SCOPED_OS_CALLS_H
#define FILELISTMANAGEMENT_TESTS_FSIO_SCOPED_OS_CALLS_H

#include <pthread.h>

#include "fsio/os_calls.h"

namespace flm_test {

// Gives the system's own calls back at the end of its life. While it lives, a flush is counted
// instead of done, since flushing a busy machine takes seconds; and no flush thread is started: the
// request is counted, its body and its argument are kept.
class ScopedOsCalls {
 public:
  ScopedOsCalls() {
    syncs = 0;
    threads = 0;
    body = nullptr;
    argument = nullptr;
    detachState = -1;
    flm::Os().Sync = [] { ++syncs; };
    flm::Os().StartThread = [](pthread_t*, const pthread_attr_t* attributes, void* (*run)(void*),
                               void* handed) {
      ++threads;
      body = run;
      argument = handed;
      pthread_attr_getdetachstate(attributes, &detachState);
      return 0;
    };
  }
  ~ScopedOsCalls() { flm::ResetOsCalls(); }
  ScopedOsCalls(const ScopedOsCalls&) = delete;
  ScopedOsCalls& operator=(const ScopedOsCalls&) = delete;

  inline static int syncs = 0;
  inline static int threads = 0;
  inline static void* (*body)(void*) = nullptr;
  inline static void* argument = nullptr;
  inline static int detachState = -1;
};

}  // namespace flm_test

#endif

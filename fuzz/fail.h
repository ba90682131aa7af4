// How a fuzzer says that something does not hold.
#ifndef FILELISTMANAGEMENT_FUZZ_FAIL_H
#define FILELISTMANAGEMENT_FUZZ_FAIL_H

#include <cstdio>
#include <cstdlib>

namespace flm_fuzz {

// Says what went wrong and ends the process, which a fuzzer takes for a finding.
[[noreturn]] inline void Fail(const char* message, const char* about = "") {
  std::fprintf(stderr, "%s %s\n", message, about);
  std::abort();
}

}  // namespace flm_fuzz

#endif

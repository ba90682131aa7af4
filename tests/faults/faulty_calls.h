// The system's calls, with a gate in front of each.
#ifndef FILELISTMANAGEMENT_TESTS_FAULTS_FAULTY_CALLS_H
#define FILELISTMANAGEMENT_TESTS_FAULTS_FAULTY_CALLS_H

#include <string>

namespace flm_faults {

// While it lives, the table of calls goes through the gate, flushes are counted instead of done,
// and no flush thread is started.
class FaultyCalls {
 public:
  FaultyCalls();
  ~FaultyCalls();
  FaultyCalls(const FaultyCalls&) = delete;
  FaultyCalls& operator=(const FaultyCalls&) = delete;

  // Puts a folder in the place of a root that the library knows by heart.
  static void Mount(const std::string& root, const std::string& folder);
};

}  // namespace flm_faults

#endif

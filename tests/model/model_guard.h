// Keeps the library on the cards of the test: every system call that names a place outside the
// folder of all cards fails, flushing only counts, and the clock stands where the test puts it. The
// preference store is one number in memory.
#ifndef FILELISTMANAGEMENT_TESTS_MODEL_MODEL_GUARD_H
#define FILELISTMANAGEMENT_TESTS_MODEL_MODEL_GUARD_H

#include <ctime>
#include <string>

namespace flm_model {

class Guard {
 public:
  explicit Guard(const std::string& base);
  ~Guard();
  Guard(const Guard&) = delete;
  Guard& operator=(const Guard&) = delete;

  static int syncs;        // flushes that the caller waits for
  static int flushes;      // flushes on a thread of their own
  static time_t now;       // what the clock says
  static long preference;  // the stored series value
};

}  // namespace flm_model

#endif

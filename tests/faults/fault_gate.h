// One fault and the place where it happens. Calls to the system and requests for memory are counted
// while the library works under a fault; the n-th of one kind fails, or every one from the n-th on.
#ifndef FILELISTMANAGEMENT_TESTS_FAULTS_FAULT_GATE_H
#define FILELISTMANAGEMENT_TESTS_FAULTS_FAULT_GATE_H

#include <string>
#include <vector>

namespace flm_faults {

enum class Source { kNone, kSystem, kMemory };

struct Fault {
  Source source = Source::kNone;
  int at = 0;            // the first call that fails, counted from 1
  bool lasting = false;  // and every one behind it
  int error = 0;         // what errno says then
};

std::string Describe(const Fault& fault);

// Every error of the system that is tried. Without FLM_FAULTS=all only two: one that means a fault,
// and the one that may mean an answer.
const std::vector<int>& AllErrors();
const std::vector<int>& Errors();

// Every call that can fail: those of the table and those that the preference store makes itself.
enum class Call {
  kStat,
  kFstat,
  kChmod,
  kMkdir,
  kUnlink,
  kRemove,
  kOpendir,
  kReaddir,
  kClosedir,
  kOpen,
  kClose,
  kRead,
  kFdopen,
  kFwrite,
  kFclose,
  kTime,
  kLocaltime,
  kStartThread,
  kWrite,
  kFsync,
  kRename,
  kCount
};

// What was counted since the last Begin.
struct Counted {
  int calls = 0;            // calls to the system that can fail
  int requests = 0;         // for memory
  int syncs = 0;            // flushes that the caller waits for
  int threads = 0;          // flush threads asked for; none is started
  int open = 0;             // handles opened less handles closed
  unsigned int kinds = 0;   // bit per Call: was made
  unsigned int failed = 0;  // bit per Call: was made to fail
};

// The gate through which all of them go. It allocates nothing.
class Gate {
 public:
  // Counts from 0, with a fault to come, until End. A run of more than `limit` calls or requests
  // ends the program: the library would go on for ever.
  static void Begin(const Fault& fault, int limit);
  static const Counted& End();

  // The test's own work in the middle of a run.
  class Pause {
   public:
    Pause() : before_(running_) { running_ = false; }
    ~Pause() { running_ = before_; }
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

   private:
    bool before_;
  };

  static bool IsRunning() { return running_; }
  static Counted& Now() { return counted_; }
  // Whether this call or request is to fail; errno is set then.
  static bool Fails(Call call);
  static bool FailsRequest();
  // A call that cannot fail is only watched.
  static void Watch();

 private:
  static bool IsHit(Source source, int number);

  inline static bool running_ = false;
  inline static Fault fault_;
  inline static int left_ = 0;
  inline static Counted counted_;
};

}  // namespace flm_faults

#endif

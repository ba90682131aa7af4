// Runs a scenario under one fault after the other.
#ifndef FILELISTMANAGEMENT_TESTS_FAULTS_FAULT_SWEEP_H
#define FILELISTMANAGEMENT_TESTS_FAULTS_FAULT_SWEEP_H

#include <map>
#include <string>
#include <vector>

#include "tests/faults/fault_world.h"
#include "tests/faults/faulty_calls.h"

namespace flm_faults {

class Sweep {
 public:
  explicit Sweep(const Scenario& scenario);

  // The calls and requests of the scenario without a fault, which every fault is one of.
  const Counted& Clean() const { return cleanCounted_; }

  // Every call and every error, or every request for memory: once, and from there on.
  void FailCalls();
  void FailRequests();

  int Faults() const { return faults_; }
  // Each thing that went wrong, with the first fault that made it so and their number.
  std::vector<std::string> Complaints() const;

 private:
  struct Found {
    std::string first;
    int times;
  };

  void RunBoth(Fault fault);
  void Run(const Fault& fault);
  Complaint RunAndJudge(World& world, const Fault& fault);
  const std::vector<Listed>& FreshScan(const Tree& now);

  const Scenario& scenario_;
  FaultyCalls calls_;
  FaultCard card_;
  Counted cleanCounted_;
  Record cleanRecord_;
  int limit_;
  Tree left_;  // the card as the last run left it
  int faults_ = 0;
  std::map<Complaint, Found> found_;
  std::map<std::string, std::vector<Listed>> scans_;  // by what is on the card
};

}  // namespace flm_faults

#endif

#include "tests/faults/fault_sweep.h"

#include <cerrno>
#include <exception>
#include <memory>

namespace flm_faults {
namespace {

// No operation makes so many calls more when one fails.
constexpr int kLimitFactor = 20;
constexpr int kLimitBase = 5000;

}  // namespace

Sweep::Sweep(const Scenario& scenario)
    : scenario_(scenario), card_(scenario.files()), limit_(kLimitBase * kLimitFactor) {
  Run(Fault());
  limit_ = kLimitBase + kLimitFactor * (cleanCounted_.calls + cleanCounted_.requests);
}

void Sweep::FailCalls() {
  for (const int error : Errors()) {
    for (int at = 1; at <= cleanCounted_.calls; ++at) RunBoth({Source::kSystem, at, false, error});
  }
}

void Sweep::FailRequests() {
  for (int at = 1; at <= cleanCounted_.requests; ++at)
    RunBoth({Source::kMemory, at, false, ENOMEM});
}

void Sweep::RunBoth(Fault fault) {
  for (const bool lasting : {false, true}) {
    fault.lasting = lasting;
    ++faults_;
    Run(fault);
  }
}

void Sweep::Run(const Fault& fault) {
  Complaint complaint;
  {
    const auto world = std::make_unique<World>(card_);
    complaint = RunAndJudge(*world, fault);
  }
  card_.Restore(left_);
  if (complaint.empty()) return;
  const auto entry = found_.emplace(complaint, Found{Describe(fault), 0}).first;
  ++entry->second.times;
}

Complaint Sweep::RunAndJudge(World& world, const Fault& fault) {
  scenario_.prepare(world);
  const Tree before = card_.Fresh();
  Complaint escaped;
  Gate::Begin(fault, limit_);
  try {
    scenario_.act(world);
  } catch (const std::exception& exception) {
    Gate::End();
    escaped = std::string("an exception leaves the library: ") + exception.what();
  }
  const Counted counted = Gate::End();
  if (fault.source == Source::kNone) {
    cleanCounted_ = counted;
    cleanRecord_ = world.record;
  }
  left_ = card_.Look();
  if (!escaped.empty()) return escaped;
  const Complaint complaint = Judge({scenario_, fault, counted, cleanRecord_, world, before, left_,
                                     FilesOf(world.list, card_.Root()), FreshScan(left_)});
  if (ScansAgain(scenario_, fault)) left_ = card_.Look();
  return complaint;
}

// What a list of its own finds on the card. The same card gives the same list.
const std::vector<Listed>& Sweep::FreshScan(const Tree& now) {
  std::string key;
  for (const auto& file : now) key += file.first + "\n";
  const auto known = scans_.find(key);
  if (known != scans_.end()) return known->second;
  World world(card_);
  world.Scan();
  return scans_[key] = FilesOf(world.list, card_.Root());
}

std::vector<std::string> Sweep::Complaints() const {
  std::vector<std::string> all;
  for (const auto& found : found_) {
    all.push_back(found.first + " (" + std::to_string(found.second.times) +
                  " times, first: " + found.second.first + ")");
  }
  return all;
}

}  // namespace flm_faults

#include "tests/faults/fault_gate.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace flm_faults {
namespace {

unsigned int BitOf(Call call) { return 1U << static_cast<unsigned int>(call); }

}  // namespace

const std::vector<int>& AllErrors() {
  static const std::vector<int> errors = {EIO,    ENOENT, ENOSPC, EROFS,
                                          EACCES, EPERM,  EMFILE, ENOMEM};
  return errors;
}

const std::vector<int>& Errors() {
  static const std::vector<int> few(AllErrors().begin(), AllErrors().begin() + 2);
  const char* const wanted = std::getenv("FLM_FAULTS");
  return wanted != nullptr && std::strcmp(wanted, "all") == 0 ? AllErrors() : few;
}

std::string Describe(const Fault& fault) {
  if (fault.source == Source::kNone) return "no fault";
  const std::string number = std::to_string(fault.at);
  const std::string what = fault.source == Source::kSystem ? "call " : "request for memory ";
  return what + number + (fault.lasting ? " and all behind it: " : " alone: ") +
         std::strerror(fault.error);
}

void Gate::Begin(const Fault& fault, int limit) {
  fault_ = fault;
  left_ = limit;
  counted_ = Counted();
  running_ = true;
}

const Counted& Gate::End() {
  running_ = false;
  return counted_;
}

void Gate::Watch() {
  if (!running_ || --left_ >= 0) return;
  running_ = false;
  std::fprintf(stderr, "the library makes no end under this fault: %s\n", Describe(fault_).c_str());
  std::abort();
}

bool Gate::IsHit(Source source, int number) {
  if (fault_.source != source || fault_.at == 0) return false;
  const bool hit = fault_.lasting ? number >= fault_.at : number == fault_.at;
  if (hit) errno = fault_.error;
  return hit;
}

bool Gate::Fails(Call call) {
  if (!running_) return false;
  Watch();
  counted_.kinds |= BitOf(call);
  const bool hit = IsHit(Source::kSystem, ++counted_.calls);
  if (hit) counted_.failed |= BitOf(call);
  return hit;
}

bool Gate::FailsRequest() {
  if (!running_) return false;
  Watch();
  return IsHit(Source::kMemory, ++counted_.requests);
}

}  // namespace flm_faults

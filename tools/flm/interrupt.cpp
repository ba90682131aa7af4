#include "interrupt.h"

#include <unistd.h>

#include <csignal>

#include "failure.h"

namespace flm::tool {
namespace {

volatile std::sig_atomic_t interrupted = 0;

void Note(int /*signal*/) { interrupted = 1; }

void Leave(int /*signal*/) { _exit(kStatusInterrupted); }

// What was told to ignore the signal, as a job in the background is, goes on doing so.
void Catch(int signal, void (*handler)(int)) {
  struct sigaction action = {};
  struct sigaction before = {};
  if (sigaction(signal, nullptr, &before) == 0 && before.sa_handler == SIG_IGN) return;
  action.sa_handler = handler;
  // A question on the terminal must end at once, so reads are not started again.
  sigaction(signal, &action, nullptr);
}

}  // namespace

void CatchInterrupts() {
  Catch(SIGINT, Note);
  Catch(SIGTERM, Note);
}

void LeaveOnInterrupt() { Catch(SIGINT, Leave); }

bool Interrupted() { return interrupted != 0; }

}  // namespace flm::tool

#include "interrupt.h"

#include <csignal>

namespace flm::tool {
namespace {

volatile std::sig_atomic_t interrupted = 0;

void Note(int /*signal*/) { interrupted = 1; }

}  // namespace

void CatchInterrupts() {
  struct sigaction action = {};
  action.sa_handler = Note;
  // A question on the terminal must end at once, so reads are not started again.
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
}

bool Interrupted() { return interrupted != 0; }

}  // namespace flm::tool

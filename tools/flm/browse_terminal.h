// The terminal while a screen has it for itself: keys one by one, nothing echoed, a second screen
// that leaves the first one as it was.
#ifndef FILELISTMANAGEMENT_TOOLS_BROWSE_TERMINAL_H
#define FILELISTMANAGEMENT_TOOLS_BROWSE_TERMINAL_H

#include <termios.h>

#include <chrono>
#include <csignal>
#include <string>

#include "browse_keys.h"
#include "browse_layout.h"

namespace flm::tool {

enum class InputKind {
  kKey,
  kResize,
  kStop,    // a signal asks the program to end, or the terminal has gone
  kNothing  // the time is over
};

struct Input {
  InputKind kind = InputKind::kNothing;
  Key key;
};

// Throws Failure, with the status of wrong usage, unless standard input and output are a terminal.
void RequireTerminal();

// One at a time. From construction to destruction, however that comes about, also by a signal that
// ends the program, the terminal is in the state that a screen needs.
class Terminal {
 public:
  Terminal();
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  // The next input; waits for it at most so long, for ever with kForEver.
  static constexpr int kForEver = -1;
  Input Wait(int milliseconds);

  void Write(const std::string& text);
  static ScreenSize Size();

  // Stops the program as Ctrl-Z does elsewhere, with the terminal as it was before; comes back when
  // the program goes on.
  void Suspend();

 private:
  void Enter();
  void Leave();
  Input Read();
  int UntilGivenUp() const;

  termios before_ = {};
  sigset_t signalsBefore_ = {};
  KeyParser keys_;
  std::chrono::steady_clock::time_point lastByte_;
  bool gone_ = false;
};

}  // namespace flm::tool

#endif

// Signals are blocked but while the terminal is waited for or written to, so that no change to the
// card is cut short by one. A signal that ends the program at once puts the terminal back first.
#include "browse_terminal.h"

#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include "failure.h"

namespace flm::tool {
namespace {

using Clock = std::chrono::steady_clock;

// The second screen, no cursor, no wrapping at the right edge; and back.
constexpr char kEnter[] = "\033[?1049h\033[?25l\033[?7l";
constexpr char kLeave[] = "\033[0m\033[?7h\033[?25h\033[?1049l";
constexpr int kEscapeMilliseconds = 50;
constexpr int kDefaultColumns = 80;
constexpr int kDefaultRows = 24;

constexpr int kStopping[] = {SIGINT, SIGTERM, SIGHUP};
constexpr int kFatal[] = {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGQUIT};

volatile std::sig_atomic_t stopped = 0;
volatile std::sig_atomic_t resized = 0;
volatile std::sig_atomic_t suspended = 0;
termios restored;  // for the handler of fatal signals

void NoteStop(int /*signal*/) { stopped = 1; }
void NoteResize(int /*signal*/) { resized = 1; }
void NoteSuspend(int /*signal*/) { suspended = 1; }

void RestoreAndDie(int signal) {
  tcsetattr(STDOUT_FILENO, TCSANOW, &restored);
  const ssize_t written = write(STDOUT_FILENO, kLeave, sizeof(kLeave) - 1);
  static_cast<void>(written);  // nobody is left who could be told
  std::signal(signal, SIG_DFL);
  raise(signal);
}

void Handle(int signal, void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  sigaction(signal, &action, nullptr);
}

sigset_t HandledSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : kStopping) sigaddset(&signals, signal);
  sigaddset(&signals, SIGWINCH);
  sigaddset(&signals, SIGTSTP);
  return signals;
}

void SetHandlers() {
  for (const int signal : kStopping) Handle(signal, NoteStop);
  Handle(SIGWINCH, NoteResize);
  Handle(SIGTSTP, NoteSuspend);
  for (const int signal : kFatal) Handle(signal, RestoreAndDie);
}

void UnsetHandlers() {
  for (const int signal : kStopping) std::signal(signal, SIG_DFL);
  std::signal(SIGWINCH, SIG_DFL);
  std::signal(SIGTSTP, SIG_DFL);
  for (const int signal : kFatal) std::signal(signal, SIG_DFL);
}

timespec Milliseconds(int milliseconds) {
  constexpr int kPerSecond = 1000;
  constexpr long kNanoseconds = 1000000;
  timespec time = {};
  time.tv_sec = milliseconds / kPerSecond;
  time.tv_nsec = milliseconds % kPerSecond * kNanoseconds;
  return time;
}

bool IsAddressable() {
  const char* const kind = std::getenv("TERM");
  return kind != nullptr && *kind != '\0' && std::string(kind) != "dumb";
}

}  // namespace

void RequireTerminal() {
  if (isatty(STDIN_FILENO) == 0 || isatty(STDOUT_FILENO) == 0) {
    throw Failure("browse needs a terminal: standard input and output are none", kStatusUsage);
  }
  if (!IsAddressable()) {
    throw Failure("browse needs a terminal whose cursor can be moved (see TERM)", kStatusUsage);
  }
}

Terminal::Terminal() {
  if (tcgetattr(STDIN_FILENO, &before_) != 0) {
    throw Failure(WithReason("cannot read the state of the terminal", errno));
  }
  restored = before_;
  const sigset_t signals = HandledSignals();
  pthread_sigmask(SIG_BLOCK, &signals, &signalsBefore_);
  SetHandlers();
  Enter();
}

// The handlers stay until the terminal is as it was. A signal that is still pending then has
// nothing left to stop: the program is leaving.
Terminal::~Terminal() {
  Leave();
  Handle(SIGTSTP, SIG_IGN);
  for (const int signal : kStopping) Handle(signal, SIG_IGN);
  pthread_sigmask(SIG_SETMASK, &signalsBefore_, nullptr);
  UnsetHandlers();
}

void Terminal::Enter() {
  termios raw = before_;
  raw.c_iflag &= ~static_cast<tcflag_t>(BRKINT | ICRNL | INLCR | IGNCR | ISTRIP | IXON);
  raw.c_lflag &= ~static_cast<tcflag_t>(ECHO | ECHONL | ICANON | ISIG | IEXTEN);
  raw.c_cc[VMIN] = 1;
  raw.c_cc[VTIME] = 0;
  if (tcsetattr(STDIN_FILENO, TCSANOW, &raw) != 0) gone_ = true;
  Write(kEnter);
}

// What was typed and not read yet was meant for the screen, not for the shell. Nothing here waits
// for the terminal, which may take nothing more.
void Terminal::Leave() {
  Write(kLeave);
  tcflush(STDIN_FILENO, TCIFLUSH);
  tcsetattr(STDIN_FILENO, TCSANOW, &before_);
}

void Terminal::Suspend() {
  Leave();
  suspended = 0;
  std::signal(SIGTSTP, SIG_DFL);
  sigset_t stop;
  sigemptyset(&stop);
  sigaddset(&stop, SIGTSTP);
  raise(SIGTSTP);
  pthread_sigmask(SIG_UNBLOCK, &stop, nullptr);  // here the program stops, and here it goes on
  pthread_sigmask(SIG_BLOCK, &stop, nullptr);
  Handle(SIGTSTP, NoteSuspend);
  Enter();
  resized = 1;
}

// A terminal that takes nothing more must not keep a signal from ending the program.
void Terminal::Write(const std::string& text) {
  pthread_sigmask(SIG_SETMASK, &signalsBefore_, nullptr);
  size_t written = 0;
  while (written < text.size() && !gone_) {
    const ssize_t result = write(STDOUT_FILENO, text.data() + written, text.size() - written);
    if (result >= 0) {
      written += static_cast<size_t>(result);
    } else if (errno != EINTR) {
      gone_ = true;
    } else if (stopped != 0) {
      break;
    }
  }
  const sigset_t signals = HandledSignals();
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

ScreenSize Terminal::Size() {
  ScreenSize size;
  winsize window = {};
  const bool known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &window) == 0;
  size.columns = known && window.ws_col > 0 ? window.ws_col : kDefaultColumns;
  size.rows = known && window.ws_row > 0 ? window.ws_row : kDefaultRows;
  if (known && window.ws_xpixel / size.columns > 0 && window.ws_ypixel / size.rows > 0) {
    size.cellWidth = window.ws_xpixel / size.columns;
    size.cellHeight = window.ws_ypixel / size.rows;
  }
  return size;
}

// How long an ESC may still stand alone; 0 when its time is over.
int Terminal::UntilGivenUp() const {
  const auto passed =
      std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - lastByte_).count();
  return static_cast<int>(std::max<int64_t>(0, kEscapeMilliseconds - passed));
}

Input Terminal::Wait(int milliseconds) {
  if (const auto key = keys_.Next()) return {InputKind::kKey, *key};
  int wait = milliseconds;
  if (keys_.IsWaiting()) {
    const int left = UntilGivenUp();
    wait = milliseconds == kForEver ? left : std::min(milliseconds, left);
  }
  // A signal that came while the terminal was written to is not sent again.
  if (stopped != 0 || suspended != 0 || resized != 0) wait = 0;
  pollfd input = {STDIN_FILENO, POLLIN, 0};
  const timespec time = Milliseconds(std::max(wait, 0));
  const int ready =
      gone_ ? 0 : ppoll(&input, 1, wait == kForEver ? nullptr : &time, &signalsBefore_);
  if (stopped != 0 || gone_) return {InputKind::kStop, {}};
  if (suspended != 0) Suspend();
  if (resized != 0) {
    resized = 0;
    return {InputKind::kResize, {}};
  }
  if (ready > 0) return Read();
  if (keys_.IsWaiting() && UntilGivenUp() == 0) {
    if (const auto key = keys_.GiveUp()) return {InputKind::kKey, *key};
  }
  return {};
}

Input Terminal::Read() {
  char bytes[256];
  const ssize_t count = read(STDIN_FILENO, bytes, sizeof(bytes));
  if (count <= 0) {
    gone_ = count == 0 || (errno != EINTR && errno != EAGAIN);
    return {gone_ ? InputKind::kStop : InputKind::kNothing, {}};
  }
  keys_.Feed(bytes, static_cast<size_t>(count));
  lastByte_ = Clock::now();
  if (const auto key = keys_.Next()) return {InputKind::kKey, *key};
  return {};
}

}  // namespace flm::tool

#include "progress.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

#include "global_options.h"
#include "interrupt.h"
#include "terminal.h"

namespace flm::tool {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kBetweenDrawings =
    std::chrono::milliseconds(125);  // with the last one, ten a second
constexpr int kBarWidth = 40;
constexpr char kWipe[] = "\r\033[K";

enum class Form { kNone, kBar, kLines, kJson };

struct State {
  Form form = Form::kNone;
  bool drawn = false;     // ever
  bool standing = false;  // a bar is on the terminal
  int handled = 0;
  bool cancelled = false;
  Clock::time_point lastDrawing;
};

State state;

std::string Bar(int done, int total) {
  const int filled = total > 0 ? std::min(kBarWidth, done * kBarWidth / total) : kBarWidth;
  return "[" + std::string(static_cast<size_t>(filled), '#') +
         std::string(static_cast<size_t>(kBarWidth - filled), '.') + "] ";
}

std::string LineOf(int done, int total) {
  const std::string doneText = std::to_string(done);
  const std::string totalText = std::to_string(total);
  if (state.form == Form::kBar) return kWipe + Bar(done, total) + doneText + "/" + totalText;
  if (state.form == Form::kLines) return doneText + "/" + totalText + "\n";
  return "{\"done\":" + doneText + ",\"total\":" + totalText + "}\n";
}

void Draw(int done, int total) {
  const Clock::time_point now = Clock::now();
  if (state.drawn && done < total && now - state.lastDrawing < kBetweenDrawings) return;
  state.lastDrawing = now;
  state.drawn = true;
  state.standing = state.form == Form::kBar;
  const std::string line = LineOf(done, total);
  std::fwrite(line.data(), 1, line.size(), stderr);
  std::fflush(stderr);
}

// A bar needs a terminal that can go back to the start of a line.
Form WantedForm(bool quiet) {
  const std::string& wanted = Globals().progress;
  const bool bars = isatty(STDERR_FILENO) != 0 && !TerminalIsDumb();
  if (wanted == "json") return Form::kJson;
  if (wanted == "always") return bars ? Form::kBar : Form::kLines;
  return wanted == "auto" && bars && !quiet ? Form::kBar : Form::kNone;
}

}  // namespace

Progress::Progress(bool quiet) {
  state = State();
  state.form = WantedForm(quiet);
  CatchInterrupts();
}

Progress::~Progress() { Wipe(); }

void Progress::Wipe() const {
  if (state.standing) std::fputs(kWipe, stderr);
  state.standing = false;
}

void Progress::Report(int /*index*/, int total, int* /*status*/, bool* cancel) {
  ++state.handled;
  if (state.form != Form::kNone) Draw(state.handled, total);
  if (!Interrupted()) return;
  state.cancelled = true;
  *cancel = true;
}

bool Progress::Cancelled() const { return state.cancelled; }

}  // namespace flm::tool

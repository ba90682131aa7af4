#include "progress.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

#include "interrupt.h"

namespace flm::tool {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kBetweenDrawings = std::chrono::milliseconds(100);
constexpr int kBarWidth = 40;
constexpr char kWipe[] = "\r\033[K";

struct State {
  bool visible = false;
  bool drawn = false;
  int handled = 0;
  bool cancelled = false;
  Clock::time_point lastDrawing;
};

State state;

void Draw(int done, int total) {
  const Clock::time_point now = Clock::now();
  if (state.drawn && done < total && now - state.lastDrawing < kBetweenDrawings) return;
  state.lastDrawing = now;
  state.drawn = true;
  const int filled = total > 0 ? std::min(kBarWidth, done * kBarWidth / total) : kBarWidth;
  const std::string bar = std::string(static_cast<size_t>(filled), '#') +
                          std::string(static_cast<size_t>(kBarWidth - filled), '.');
  const std::string line =
      kWipe + std::string("[") + bar + "] " + std::to_string(done) + "/" + std::to_string(total);
  std::fwrite(line.data(), 1, line.size(), stderr);
  std::fflush(stderr);
}

}  // namespace

Progress::Progress(bool quiet) {
  state = State();
  state.visible = !quiet && isatty(STDERR_FILENO) != 0;
  CatchInterrupts();
}

Progress::~Progress() { Wipe(); }

void Progress::Wipe() const {
  if (state.drawn) std::fputs(kWipe, stderr);
  state.drawn = false;
}

void Progress::Report(int /*index*/, int total, int* /*status*/, bool* cancel) {
  ++state.handled;
  if (state.visible) Draw(state.handled, total);
  if (!Interrupted()) return;
  state.cancelled = true;
  *cancel = true;
}

bool Progress::Cancelled() const { return state.cancelled; }

}  // namespace flm::tool

// SIGPIPE is ignored by main, so that a closed pipe shows here as an error and never kills the tool
// in the middle of a change to the card.
#include "output.h"

#include <cerrno>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "failure.h"
#include "terminal.h"
#include "text.h"

namespace flm::tool {
namespace {

int outputError = 0;  // the first error of standard output

}  // namespace

void Print(const std::string& text) {
  if (outputError != 0) return;
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) outputError = errno;
}

void PrintLine(const std::string& text) { Print(text + "\n"); }

// A terminal gets ASCII alone: a name may hold characters beyond it that a terminal obeys.
std::string JsonLines(const nlohmann::ordered_json& value, int indent) {
  return value.dump(indent, ' ', OutputIsTerminal());
}

void PrintJson(const nlohmann::ordered_json& value) { PrintLine(JsonLines(value, kJsonIndent)); }

void Complain(const std::string& message) {
  std::fflush(stdout);  // Keeps the two streams in order when they end up in one place.
  const std::string line = "flm: " + WithoutControls(message) + "\n";
  std::fwrite(line.data(), 1, line.size(), stderr);
}

bool OutputIsGone() { return outputError != 0; }

int FinishOutput(int status) {
  if (std::fflush(stdout) != 0 && outputError == 0) outputError = errno;
  if (outputError == 0 || outputError == EPIPE) return status;
  const std::string line = WithReason("flm: cannot write the output", outputError) + "\n";
  std::fwrite(line.data(), 1, line.size(), stderr);
  return status == kStatusDone ? kStatusFailed : status;
}

}  // namespace flm::tool

#include "terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "global_options.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr size_t kUsualWidth = 80;
constexpr size_t kMaxWidthDigits = 4;

std::string Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

}  // namespace

bool OutputIsTerminal() { return isatty(STDOUT_FILENO) != 0; }

size_t TerminalWidth() {
  winsize size = {};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
  const std::string columns = Variable("COLUMNS");
  const bool usable = IsNumber(columns) && columns.size() <= kMaxWidthDigits;
  const size_t width = usable ? std::stoul(columns) : 0;
  return width > 0 ? width : kUsualWidth;
}

bool TerminalIsDumb() {
  const std::string kind = Variable("TERM");
  return kind.empty() || kind == "dumb";
}

bool ColorsAreWanted() {
  if (Globals().color != "auto") return Globals().color == "always";
  return OutputIsTerminal() && !TerminalIsDumb() && Variable("NO_COLOR").empty();
}

}  // namespace flm::tool

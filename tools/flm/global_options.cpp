#include "global_options.h"

#include <CLI/CLI.hpp>

#include "failure.h"

namespace flm::tool {

GlobalOptions& Globals() {
  static GlobalOptions globals;
  return globals;
}

void AddGlobalOptions(CLI::App& app) {
  GlobalOptions& globals = Globals();
  app.add_flag("--read-only", globals.readOnly,
               "Make, change and flush nothing; refuse commands that would");
  app.add_option("--progress", globals.progress,
                 "Progress on standard error: auto (a bar on a terminal), always, never, or json "
                 "(one object a line)")
      ->capture_default_str()
      ->check(CLI::IsMember({"auto", "always", "never", "json"}));
  app.add_option("--color", globals.color, "Colours on standard output: auto, always or never")
      ->capture_default_str()
      ->check(CLI::IsMember({"auto", "always", "never"}));
  // These may stand behind the command, too.
  app.fallthrough();
}

void RequireChangesAllowed() {
  if (Globals().readOnly) throw Failure("--read-only forbids this command", kStatusUsage);
}

}  // namespace flm::tool

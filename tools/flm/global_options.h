// Options that belong to no command: they may stand in front of any or behind it.
#ifndef FILELISTMANAGEMENT_TOOLS_GLOBAL_OPTIONS_H
#define FILELISTMANAGEMENT_TOOLS_GLOBAL_OPTIONS_H

#include <string>

namespace CLI {
class App;
}

namespace flm::tool {

struct GlobalOptions {
  bool readOnly = false;
  std::string progress = "auto";  // auto, always, never, json
  std::string color = "auto";     // auto, always, never
};

// There is one a process.
GlobalOptions& Globals();

void AddGlobalOptions(CLI::App& app);

// Throws Failure with --read-only. What would change a card, or what this machine keeps, begins
// with it.
void RequireChangesAllowed();

}  // namespace flm::tool

#endif

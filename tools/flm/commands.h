// The commands of the tool, one function for each family, each in the file of that name.
#ifndef FILELISTMANAGEMENT_TOOLS_COMMANDS_H
#define FILELISTMANAGEMENT_TOOLS_COMMANDS_H

#include <functional>
#include <string>

namespace CLI {
class App;
}

namespace flm::tool {

// What the command line asks for: set while it is parsed, run afterwards. Returns the status of the
// process or throws Failure.
using Action = std::function<int()>;

void AddListCommands(CLI::App& app, Action& action);     // ls, count
void AddInfoCommand(CLI::App& app, Action& action);      // info
void AddMkcardCommand(CLI::App& app, Action& action);    // mkcard
void AddNameCommands(CLI::App& app, Action& action);     // new, next
void AddNumberCommands(CLI::App& app, Action& action);   // last, set-last, avail, series
void AddImportCommand(CLI::App& app, Action& action);    // import
void AddProtectCommands(CLI::App& app, Action& action);  // protect, unprotect
void AddRemoveCommand(CLI::App& app, Action& action);    // rm
void AddPagesCommand(CLI::App& app, Action& action);     // pages
void AddBrowseCommand(CLI::App& app, Action& action);    // browse
void AddPrintCommands(CLI::App& app, Action& action);    // print
void AddCheckCommand(CLI::App& app, Action& action);     // check
void AddScanCommand(CLI::App& app, Action& action);      // scan

// The argument that names the card.
void AddRoot(CLI::App& command, std::string& root);
// What its help ends with, in front of what all of them end with.
void AddFooter(CLI::App& command, const std::string& text);
// The option that leaves the CAMERA folder out.
void AddNonDcf(CLI::App& command, bool& nonDcf);

}  // namespace flm::tool

#endif

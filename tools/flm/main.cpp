// flm: the file list of a camera card on the command line.
#include <CLI/CLI.hpp>
#include <csignal>
#include <exception>
#include <string>

#include "commands.h"
#include "failure.h"
#include "flm_version.h"
#include "global_options.h"
#include "interrupt.h"
#include "output.h"
#include "text.h"

namespace {

using flm::tool::Action;

void Describe(CLI::App& app) {
  app.description(
      "Lists and manages the files of a camera card. ROOT is any folder with a DCIM tree.");
  app.set_version_flag("--version", std::string("flm ") + kVersion);
  app.set_help_all_flag("--help-all", "Print the help of every command");
  app.require_subcommand(1);
  app.footer(
      "Exit status: 0 done, 1 failed or something to report, 2 wrong usage, 3 nothing matches, "
      "4 the card cannot be read, 130 interrupted.");
}

void AddCommands(CLI::App& app, Action& action) {
  flm::tool::AddListCommands(app, action);
  flm::tool::AddInfoCommand(app, action);
  flm::tool::AddMkcardCommand(app, action);
  flm::tool::AddNameCommands(app, action);
  flm::tool::AddNumberCommands(app, action);
  flm::tool::AddImportCommand(app, action);
  flm::tool::AddProtectCommands(app, action);
  flm::tool::AddRemoveCommand(app, action);
  flm::tool::AddPagesCommand(app, action);
  flm::tool::AddBrowseCommand(app, action);
  flm::tool::AddPrintCommands(app, action);
  flm::tool::AddCheckCommand(app, action);
  flm::tool::AddScanCommand(app, action);
}

int Run(const Action& action) {
  try {
    return action();
  } catch (const flm::tool::Failure& failure) {
    flm::tool::Complain(failure.what());
    return failure.Status();
  } catch (const std::exception& error) {
    flm::tool::Complain(error.what());
    return flm::tool::kStatusFailed;
  }
}

// The first word that no command took; "" when the parser objects to something else.
std::string StrangeWord(const CLI::App& app) {
  for (const std::string& word : app.remaining(true)) {
    if (word != "--") return word;
  }
  return "";
}

// Whether the commands that were given still lack one, as `print` alone does.
bool LacksCommand(const CLI::App& app) {
  const std::vector<CLI::App*> given = app.get_subcommands();
  if (given.empty()) return app.get_require_subcommand_min() > 0;
  return LacksCommand(*given.front());
}

// What is wrong with the command line. The parser's own message does not name a word that it takes
// for a misspelt command or option.
std::string Objection(const CLI::App& app, const CLI::ParseError& error) {
  const std::string word = StrangeWord(app);
  const bool strange = error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError) ||
                       error.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError);
  if (strange && word.size() > 1 && word[0] == '-') {
    return "no option " + word.substr(0, word.find('='));
  }
  if (strange && !word.empty() && LacksCommand(app)) return "no command " + word;
  return error.what();
}

// Help and version are answered here; anything else that the parser throws is wrong usage. Its
// messages quote the command line, which may hold anything.
int Answer(const CLI::App& app, const CLI::ParseError& error) {
  if (error.get_exit_code() == 0) return app.exit(error);
  flm::tool::Complain(flm::tool::Printable(Objection(app, error)) + " (see flm --help)");
  return flm::tool::kStatusUsage;
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_IGN);
  flm::tool::LeaveOnInterrupt();
  CLI::App app;
  Action action;
  Describe(app);
  flm::tool::AddGlobalOptions(app);
  AddCommands(app, action);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return flm::tool::FinishOutput(Answer(app, error));
  }
  return flm::tool::FinishOutput(Run(action));
}

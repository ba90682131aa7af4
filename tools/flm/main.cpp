// flm: the file list of a camera card on the command line.
#include <CLI/CLI.hpp>
#include <csignal>
#include <exception>

#include "commands.h"
#include "failure.h"
#include "output.h"

namespace {

using flm::tool::Action;

void Describe(CLI::App& app) {
  app.description(
      "Lists and manages the files of a camera card. ROOT is any folder with a DCIM tree.");
  app.set_version_flag("--version", "flm 1.0.0");
  app.set_help_all_flag("--help-all", "Print the help of every command");
  app.require_subcommand(1);
  app.footer(
      "Exit status: 0 done, 1 failed or something to report, 2 wrong usage, 130 interrupted.");
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
  flm::tool::AddPrintCommands(app, action);
  flm::tool::AddCheckCommand(app, action);
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

// Help and version are answered here; anything else that the parser throws is wrong usage.
int Answer(const CLI::App& app, const CLI::ParseError& error) {
  if (error.get_exit_code() == 0) return app.exit(error);
  std::string message = error.what();
  message = message.substr(0, message.find('\n'));
  flm::tool::Complain(message + " (see flm --help)");
  return flm::tool::kStatusUsage;
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_IGN);
  CLI::App app;
  Action action;
  Describe(app);
  AddCommands(app, action);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return flm::tool::FinishOutput(Answer(app, error));
  }
  return flm::tool::FinishOutput(Run(action));
}

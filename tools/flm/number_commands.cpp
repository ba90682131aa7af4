// flm last, flm set-last, flm avail, flm series.
#include <CLI/CLI.hpp>
#include <memory>

#include "card.h"
#include "commands.h"
#include "failure.h"
#include "global_options.h"
#include "numbers.h"
#include "output.h"
#include "series_store.h"
#include "unreadable.h"

namespace flm::tool {
namespace {

struct NumberOptions {
  CardOptions card;
  std::string number;
  bool series = false;
  bool force = false;
  bool dryRun = false;
};

FileNumber LastOf(Card& card) {
  FileNumber last;
  card.List().GetLastIndex(&last.folder, &last.file);
  return last;
}

int RunLast(const NumberOptions& options) {
  Card card(options.card, Access::kLook);
  // The CAMERA folder has no part in the numbers.
  const int whole = TellUnreadable(card, false);
  if (options.series) card.List().SetSeriesMode(true);
  PrintLine(NumberText(LastOf(card)));
  return whole;
}

int RunAvail(const NumberOptions& options) {
  Card card(options.card, Access::kLook);
  const int whole = TellUnreadable(card);
  PrintLine(std::to_string(card.List().GetAvailNumOfPhoto()));
  return whole;
}

void RequireHigher(const FileNumber& wanted, const FileNumber& last, bool force) {
  if (force || ToFileIndex(wanted) > ToFileIndex(last)) return;
  throw Failure(NumberText(wanted) + " is not above " + NumberText(last) +
                "; --force sets it all the same");
}

int SayChange(const FileNumber& from, const FileNumber& to) {
  PrintLine(NumberText(from) + " -> " + NumberText(to));
  return kStatusDone;
}

// The series value takes part, so that a number below one that was used on another card is seen.
int RunSetLast(const NumberOptions& options) {
  if (!options.dryRun) RequireChangesAllowed();
  const FileNumber wanted = ParseNumber(options.number);
  Card card(options.card, Access::kLook);
  card.List().SetSeriesMode(true);
  const FileNumber last = LastOf(card);
  RequireHigher(wanted, last, options.force);
  if (options.dryRun) return SayChange(last, wanted);
  if (card.List().SetLastIndex(wanted.folder, wanted.file, options.force) < 0) {
    throw Failure("cannot set the last number");
  }
  RequireStored(wanted);
  return SayChange(last, wanted);
}

int RunSeriesShow() {
  PrintLine(NumberText(StoredNumber()));
  return kStatusDone;
}

int RunSeriesSet(const NumberOptions& options) {
  if (!options.dryRun) RequireChangesAllowed();
  const FileNumber wanted = ParseNumber(options.number);
  const FileNumber stored = StoredNumber();
  RequireHigher(wanted, stored, options.force);
  if (!options.dryRun) StoreNumber(wanted);
  return SayChange(stored, wanted);
}

void AddSetting(CLI::App& command, NumberOptions& options) {
  command.add_option("NUMBER", options.number, "Folder and file number, such as 105/0020")
      ->required();
  command.add_flag("--force", options.force, "Set a number that is lower than the last one, too");
  command.add_flag("--dry-run", options.dryRun, "Only say what would change");
}

void AddSeriesCommands(CLI::App& app, Action& action,
                       const std::shared_ptr<NumberOptions>& options) {
  CLI::App& series =
      *app.add_subcommand("series", "The last number given out on any card, kept on this machine");
  series.require_subcommand(1);
  CLI::App& show = *series.add_subcommand("show", "Print it, or \"none\"");
  show.callback([&action] { action = RunSeriesShow; });
  CLI::App& set = *series.add_subcommand("set", "Set it");
  AddSetting(set, *options);
  set.callback([options, &action] { action = [options] { return RunSeriesSet(*options); }; });
}

}  // namespace

void AddNumberCommands(CLI::App& app, Action& action) {
  const auto options = std::make_shared<NumberOptions>();
  CLI::App& last = *app.add_subcommand("last", "Print the number of the newest file");
  AddRoot(last, options->card.root);
  last.add_flag("--series", options->series,
                "Or the last number given out on any card, when higher");
  last.callback([options, &action] { action = [options] { return RunLast(*options); }; });

  CLI::App& setLast = *app.add_subcommand("set-last", "Set the number that numbering goes on from");
  AddFooter(setLast,
            "The number is kept on this machine, not on the card: `new --series` follows it.");
  AddRoot(setLast, options->card.root);
  AddSetting(setLast, *options);
  setLast.callback([options, &action] { action = [options] { return RunSetLast(*options); }; });

  CLI::App& avail = *app.add_subcommand("avail", "Print how many more files can be numbered");
  AddFooter(avail, "At most 1000 while a folder number is left.");
  AddRoot(avail, options->card.root);
  avail.callback([options, &action] { action = [options] { return RunAvail(*options); }; });

  AddSeriesCommands(app, action, options);
}

}  // namespace flm::tool

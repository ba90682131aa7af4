// flm protect, flm unprotect.
#include <sys/stat.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "bulk.h"
#include "commands.h"
#include "failure.h"
#include "output.h"
#include "text.h"

namespace flm::tool {
namespace {

bool HasProtection(const std::string& path, bool on) {
  struct stat status;
  return stat(path.c_str(), &status) == 0 && ((status.st_mode & S_IWUSR) == 0) == on;
}

// The list answers with the result of the last companion; only the card tells about every file.
bool AllHaveProtection(const Entry& entry, bool on) {
  bool all = HasProtection(entry.Path(), on);
  for (const std::string& companion : entry.companions) {
    if (Exists(companion) && !HasProtection(companion, on)) all = false;
  }
  return all;
}

std::string WithCompanions(const Card& card, const Entry& entry) {
  std::string text = card.Shown(entry.Path());
  for (const std::string& name : CompanionNames(entry)) text += " and " + Printable(name);
  return text;
}

// The verb as the user typed it.
std::string Verb(bool on) { return on ? "protect" : "unprotect"; }

// Says what became of a file, judged by the card itself; whether it worked.
bool Tell(const Card& card, const Entry& entry, bool on, bool quiet) {
  const std::string shown = WithCompanions(card, entry);
  if (!AllHaveProtection(entry, on)) {
    Complain("cannot " + Verb(on) + " " + shown);
    return false;
  }
  if (!quiet) PrintLine(Verb(on) + "ed " + shown);
  return true;
}

int DryRun(const Card& card, const std::vector<Entry>& targets, bool on) {
  for (const Entry& entry : targets)
    PrintLine("would " + Verb(on) + " " + WithCompanions(card, entry));
  return kStatusDone;
}

int RunProtect(const BulkOptions& options, bool on) {
  Card card(options.card, options.dryRun ? Access::kLook : Access::kChange);
  std::vector<Entry> targets = BulkTargets(card, options);
  if (options.dryRun) return DryRun(card, targets, on);
  Confirm(options, Verb(on), targets.size());
  // Each file has an item of its own, since an item carries its own companions along.
  const size_t handled = ForEachTarget(
      targets, options.quiet, [&](Entry& entry) { card.List().SetProtect(&entry.item, on); });
  size_t done = 0;
  for (size_t i = 0; i < handled; ++i) {
    if (Tell(card, targets[i], on, options.quiet)) ++done;
  }
  if (handled < targets.size()) return SayInterrupted(done, targets.size());
  return done == handled ? kStatusDone : kStatusFailed;
}

void AddOne(CLI::App& app, Action& action, bool on) {
  const auto options = std::make_shared<BulkOptions>();
  CLI::App& command = on ? *app.add_subcommand("protect", "Protect files, with their companions")
                         : *app.add_subcommand("unprotect", "Take the protection away again");
  command.footer("A file is protected when its owner may not write it.");
  AddBulkOptions(command, *options);
  command.callback(
      [options, on, &action] { action = [options, on] { return RunProtect(*options, on); }; });
}

}  // namespace

void AddProtectCommands(CLI::App& app, Action& action) {
  AddOne(app, action, true);
  AddOne(app, action, false);
}

}  // namespace flm::tool

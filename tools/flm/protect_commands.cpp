// flm protect, flm unprotect.
#include <sys/stat.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <memory>

#include "bulk.h"
#include "card_mount.h"
#include "commands.h"
#include "failure.h"
#include "output.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr mode_t kAllModes = 07777;

bool HasProtection(const std::string& path, bool on) {
  struct stat status;
  return stat(path.c_str(), &status) == 0 && ((status.st_mode & S_IWUSR) == 0) == on;
}

// The first of a file and its companions that lacks the protection, "" for none. The list answers
// with the result of the last companion; only the card tells about every file.
std::string FirstWithout(const Entry& entry, bool on) {
  if (!HasProtection(entry.Path(), on)) return entry.Path();
  for (const std::string& companion : entry.companions) {
    if (Exists(companion) && !HasProtection(companion, on)) return companion;
  }
  return "";
}

// Why a file has not the protection that was asked for; the system is asked once more. A mount may
// ignore the change and report success.
std::string WhyNot(const std::string& what, const std::string& shown, const std::string& path,
                   bool on) {
  struct stat status;
  if (stat(path.c_str(), &status) != 0) return WithReason(what, errno);
  const mode_t mode = on ? status.st_mode & ~mode_t{S_IWUSR} : status.st_mode | S_IWUSR;
  if (chmod(path.c_str(), mode & kAllModes) != 0) return WithReason(what, errno);
  if (HasProtection(path, on)) return what;
  const std::string mount = ProtectionTroubleAt(path);
  return shown + (on ? " is not protected: " : " is still protected: ") +
         (mount.empty() ? "its file system keeps its permissions and does not say so" : mount);
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
  const std::string failed = FirstWithout(entry, on);
  if (!failed.empty()) {
    const std::string companion = failed == entry.Path() ? "" : "the companion ";
    const std::string shown = companion + card.Shown(failed);
    Complain(WhyNot("cannot " + Verb(on) + " " + shown, shown, failed, on));
    return false;
  }
  if (!quiet) PrintLine(Verb(on) + "ed " + WithCompanions(card, entry));
  return true;
}

int DryRun(const Card& card, const std::vector<Entry>& targets, bool on) {
  for (const Entry& entry : targets)
    PrintLine("would " + Verb(on) + " " + WithCompanions(card, entry));
  return kStatusDone;
}

int RunProtect(const BulkOptions& options, bool on) {
  BeginBulk(options);
  Card card(options.card, options.dryRun ? Access::kLook : Access::kChange);
  std::vector<Entry> targets = BulkTargets(card, options);
  card.RequireTreesOnCard();
  RequireOnCard(card, targets, Links::kFollowed);
  if (options.dryRun) return FinishBulk(card, options, DryRun(card, targets, on));
  Confirm(options, Verb(on), targets.size());
  // Each file has an item of its own, since an item carries its own companions along.
  const size_t handled = ForEachTarget(
      targets, options.quiet, [&](Entry& entry) { card.List().SetProtect(&entry.item, on); });
  size_t done = 0;
  for (size_t i = 0; i < handled; ++i) {
    if (Tell(card, targets[i], on, options.quiet)) ++done;
  }
  if (handled < targets.size()) return SayInterrupted(done, targets.size());
  return FinishBulk(card, options, done == handled ? kStatusDone : kStatusFailed);
}

void AddOne(CLI::App& app, Action& action, bool on) {
  const auto options = std::make_shared<BulkOptions>();
  CLI::App& command = on ? *app.add_subcommand("protect", "Protect files, with their companions")
                         : *app.add_subcommand("unprotect", "Take the protection away again");
  AddFooter(
      command,
      "A file is protected when its owner may not write it. Each file is looked at again; one that "
      "the card's mount leaves as it was is told, and the exit status is 1.");
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

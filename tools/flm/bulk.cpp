#include "bulk.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <set>

#include "commands.h"
#include "failure.h"
#include "interrupt.h"
#include "output.h"
#include "progress.h"
#include "select.h"
#include "text.h"
#include "unreadable.h"

namespace flm::tool {
namespace {

// One line from the terminal, without its end; "" when there is none.
std::string ReadAnswer() {
  std::string answer;
  char c = 0;
  while (read(STDIN_FILENO, &c, 1) == 1 && c != '\n') answer += c;
  return answer;
}

void RequireUninterrupted() {
  if (Interrupted()) throw Failure("interrupted: 0 files done", kStatusInterrupted);
}

}  // namespace

void AddBulkOptions(CLI::App& command, BulkOptions& options) {
  AddRoot(command, options.card.root);
  CLI::Option* const files = command.add_option("FILE", options.files, kFilesHelp);
  command.add_flag("-a,--all", options.all, "Every file of the card")->excludes(files);
  AddFilterOptions(command, options.filter);
  command.add_flag("-y,--yes", options.yes, "Do not ask before more than one file is changed");
  command.add_flag("-q,--quiet", options.quiet, "No progress bar, and nothing about what was done");
  command.add_flag("-n,--dry-run", options.dryRun, "Only say what would be done");
}

void BeginBulk(const BulkOptions& options) {
  if (!options.all && options.files.empty() && !options.filter.IsSet()) {
    throw Failure("no file is named (or --all, or a filter)", kStatusUsage);
  }
  CatchInterrupts();
}

std::vector<Entry> BulkTargets(Card& card, const BulkOptions& options) {
  std::vector<Entry> targets;
  Choice(card, options.files, options.filter).ForEach([&](const Entry& entry) {
    targets.push_back(entry);
  });
  if (targets.empty() && options.filter.IsSet()) {
    throw NotThere(card, "no file matches");
  }
  return targets;
}

void RequireOnCard(const Card& card, const std::vector<Entry>& targets, Links links) {
  std::set<std::string> folders;
  for (const Entry& entry : targets) {
    const std::string folder = FolderOf(entry.Path());
    if (folders.insert(folder).second) card.RequireOnCard(folder);
    if (links == Links::kThemselves) continue;
    card.RequireOnCard(entry.Path());
    for (const std::string& companion : entry.companions) card.RequireOnCard(companion);
  }
}

void Confirm(const BulkOptions& options, const std::string& act, size_t files) {
  RequireUninterrupted();
  if (options.yes || options.dryRun || files < 2) return;
  const std::string what = act + " " + Counted(static_cast<int64_t>(files), "file");
  if (isatty(STDIN_FILENO) == 0) {
    throw Failure("will not " + what + " without --yes: there is no terminal to ask on");
  }
  RequireUninterrupted();
  const std::string question = "flm: " + what + "? [y/N] ";
  std::fwrite(question.data(), 1, question.size(), stderr);
  const std::string answer = Upper(ReadAnswer());
  RequireUninterrupted();
  if (answer != "Y" && answer != "YES") throw Failure("nothing was done");
}

size_t ForEachTarget(std::vector<Entry>& targets, bool quiet,
                     const std::function<void(Entry&)>& act) {
  const Progress progress(quiet);
  const int total = static_cast<int>(targets.size());
  int handled = 0;
  bool cancel = false;
  while (handled < total && !cancel) {
    act(targets[static_cast<size_t>(handled)]);
    int status = 0;
    Progress::Report(handled, total, &status, &cancel);
    ++handled;
  }
  return static_cast<size_t>(handled);
}

int FinishBulk(const Card& card, const BulkOptions& options, int status) {
  if (status == kStatusInterrupted) return status;
  const int whole = options.files.empty() ? TellUnreadable(card, options.card.nonDcf) : kStatusDone;
  return status == kStatusDone ? whole : status;
}

int SayInterrupted(size_t done, size_t files) {
  const std::string all = Counted(static_cast<int64_t>(files), "file");
  Complain("interrupted: " + (done == 0 ? "0 files" : std::to_string(done) + " of " + all) +
           " done");
  return kStatusInterrupted;
}

}  // namespace flm::tool

// flm rm. Every file is removed with the companions that its filled item names.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <memory>

#include "bulk.h"
#include "commands.h"
#include "failure.h"
#include "output.h"
#include "print_order.h"
#include "progress.h"
#include "text.h"

namespace flm::tool {
namespace {

struct RemoveOptions {
  BulkOptions bulk;
  bool force = false;
};

// What the list's DeleteAll answers.
constexpr int kNotUnprotected = -100;
constexpr int kNotRemoved = -200;
constexpr int kNotSaved = -1000;

std::string NameList(const std::vector<std::string>& paths) {
  std::string text;
  for (const std::string& path : paths) {
    text += (text.empty() ? " with " : ", ") + Printable(BaseName(path));
  }
  return text;
}

bool IsKept(const Entry& entry, bool force) { return entry.item.isProtected != 0 && !force; }

int DryRun(const Card& card, const std::vector<Entry>& targets, bool force) {
  for (const Entry& entry : targets) {
    const std::string shown = card.Shown(entry.Path());
    if (IsKept(entry, force)) {
      PrintLine("would keep " + shown + ", which is protected");
    } else {
      PrintLine("would remove " + shown + NameList(entry.companions));
    }
  }
  return kStatusDone;
}

// Why a file of this folder cannot be removed, as far as the system tells.
std::string Reason(const std::string& path) {
  if (access(FolderOf(path).c_str(), W_OK) != 0) return WithReason("", errno);
  return "";
}

// What became of each file, judged by the card itself.
class Outcome {
 public:
  Outcome(const Card& card, const RemoveOptions& options) : card_(card), options_(options) {}

  void Tell(const Entry& entry) {
    if (Exists(entry.Path())) {
      TellKept(entry);
      return;
    }
    ++removed_;
    std::vector<std::string> gone;
    for (const std::string& companion : entry.companions) {
      if (!Exists(companion)) {
        gone.push_back(companion);
      } else {
        Complain("cannot remove the companion " + card_.Shown(companion) + Reason(companion));
        failed_ = true;
      }
    }
    if (!options_.bulk.quiet) PrintLine("removed " + card_.Shown(entry.Path()) + NameList(gone));
  }

  size_t Removed() const { return removed_; }
  int Status() const { return failed_ ? kStatusFailed : kStatusDone; }

 private:
  void TellKept(const Entry& entry) {
    failed_ = true;
    const std::string shown = card_.Shown(entry.Path());
    if (IsKept(entry, options_.force)) {
      Complain(shown + " is protected (--force removes it)");
    } else {
      Complain("cannot remove " + shown + Reason(entry.Path()));
    }
  }

  const Card& card_;
  const RemoveOptions& options_;
  size_t removed_ = 0;
  bool failed_ = false;
};

// The list's own operation flushes the card now and then instead of after every file. It gives up
// at the first file that cannot be removed, which is then the first one left that need not be kept.
int RunRemoveAll(Card& card, const RemoveOptions& options, const std::vector<Entry>& targets) {
  Progress progress(options.bulk.quiet);
  const int result = card.List().DeleteAll(options.force, Progress::Report);
  const bool gaveUp = result == kNotUnprotected || result == kNotRemoved;
  const bool finished = !progress.Cancelled() || card.Count() == 0;
  progress.Wipe();
  Outcome outcome(card, options);
  for (const Entry& entry : targets) {
    const bool reached = finished || !Exists(entry.Path());
    if (reached) outcome.Tell(entry);
    if (gaveUp && Exists(entry.Path()) && !IsKept(entry, options.force)) break;
  }
  if (result == kNotSaved) throw Failure("the files are removed, but the print order is not saved");
  return finished ? outcome.Status() : SayInterrupted(outcome.Removed(), targets.size());
}

int RunRemoveSome(Card& card, const RemoveOptions& options, std::vector<Entry>& targets) {
  const size_t handled = ForEachTarget(targets, options.bulk.quiet, [&](Entry& entry) {
    card.List().Delete(&entry.item, options.force, false);
  });
  Outcome outcome(card, options);
  for (size_t i = 0; i < handled; ++i) outcome.Tell(targets[i]);
  if (outcome.Removed() > 0 && HasPrintOrder()) SavePrintOrder(card, PrintOrderCreator());
  return handled == targets.size() ? outcome.Status()
                                   : SayInterrupted(outcome.Removed(), targets.size());
}

int RunRemove(const RemoveOptions& options) {
  Card card(options.bulk.card, options.bulk.dryRun ? Access::kLook : Access::kChange);
  std::vector<Entry> targets = BulkTargets(card, options.bulk);
  if (options.bulk.dryRun) return DryRun(card, targets, options.force);
  Confirm(options.bulk, "remove", targets.size());
  if (targets.empty()) return kStatusDone;
  // Deletion rewrites the print order; whoever made it stays named in it.
  std::string creator = PrintOrderCreator();
  card.List().SetDPOFDevName(Arg(creator));
  return options.bulk.all ? RunRemoveAll(card, options, targets)
                          : RunRemoveSome(card, options, targets);
}

}  // namespace

void AddRemoveCommand(CLI::App& app, Action& action) {
  const auto options = std::make_shared<RemoveOptions>();
  CLI::App& remove = *app.add_subcommand("rm", "Remove files, with their companions");
  remove.footer(
      "A folder that becomes empty is removed too, except the newest one. Protected files are kept "
      "unless --force is given.");
  AddBulkOptions(remove, options->bulk);
  remove.add_flag("-f,--force", options->force, "Remove protected files, too");
  remove.callback([options, &action] { action = [options] { return RunRemove(*options); }; });
}

}  // namespace flm::tool

// flm rm. Every file is removed with the companions that its filled item names.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <memory>
#include <set>

#include "bulk.h"
#include "commands.h"
#include "copy_file.h"
#include "dcf/dcf_name.h"
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

// Companions join the first file of their number. Where a folder has two pictures of one number,
// those of the second must not stay behind as files without their picture.
void AddOwnCompanions(Entry& entry) {
  constexpr size_t kExtensionLength = 3;
  const std::string path = entry.Path();
  if (!EndsInJpg(path.c_str()) || IsCameraName(BaseName(FolderOf(path)).c_str())) return;
  for (const char* const extension : {"SRW", "WAV", "MPO"}) {
    const std::string own = path.substr(0, path.size() - kExtensionLength) + extension;
    if (Contains(entry.companions, own) || !Exists(own) || IsFolder(own)) continue;
    entry.companions.push_back(own);
  }
}

bool IsKept(const Entry& entry, bool force) { return entry.item.isProtected != 0 && !force; }

void SayMissing(const Card& card, const std::string& path) {
  Complain(WithReason("cannot remove " + card.Shown(path), ENOENT));
}

int DryRun(const Card& card, const std::vector<Entry>& targets, bool force) {
  int status = kStatusDone;
  for (const Entry& entry : targets) {
    const std::string shown = card.Shown(entry.Path());
    if (!Exists(entry.Path())) {
      SayMissing(card, entry.Path());
      status = kStatusFailed;
    } else if (IsKept(entry, force)) {
      PrintLine("would keep " + shown + ", which is protected");
      status = kStatusFailed;
    } else {
      PrintLine("would remove " + shown + NameList(entry.companions));
    }
  }
  return status;
}

// Why a file of this folder cannot be removed, as far as the system tells.
std::string Reason(const std::string& path) {
  if (access(FolderOf(path).c_str(), W_OK) != 0) return WithReason("", errno);
  return IsFolder(path) ? WithReason("", EISDIR) : "";
}

// What became of each file, judged by the card itself. A file that was not there under its listed
// name before must not pass for removed, so this is made before the list deletes anything.
class Outcome {
 public:
  Outcome(Card& card, const RemoveOptions& options, const std::vector<Entry>& targets)
      : card_(card), options_(options), newest_(FolderOf(PathOfLast(card))) {
    for (const Entry& entry : targets) {
      if (!Exists(entry.Path())) missing_.insert(entry.index);
      folders_.insert(FolderOf(entry.Path()));
    }
  }

  bool WasMissing(const Entry& entry) const { return missing_.count(entry.index) != 0; }

  void Tell(const Entry& entry) {
    if (WasMissing(entry)) {
      SayMissing(card_, entry.Path());
      failed_ = true;
      return;
    }
    if (Exists(entry.Path())) {
      TellKept(entry);
      return;
    }
    ++removed_;
    RemoveLeftCompanions(entry);
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

  // Emptied folders go with their files, except the one that new files go on into.
  void TellFolders() {
    if (removed_ == 0) return;
    for (const std::string& folder : folders_) {
      if (folder == newest_ || !IsFolder(folder) || !EntriesOf(folder).empty()) continue;
      if (access(FolderOf(folder).c_str(), W_OK) == 0) continue;
      Complain(WithReason("cannot remove the folder " + card_.Shown(folder), errno));
      failed_ = true;
    }
  }

  size_t Removed() const { return removed_; }
  int Status() const { return failed_ ? kStatusFailed : kStatusDone; }

 private:
  static std::string PathOfLast(Card& card) {
    CQFileListItem item;
    return card.List().GetLast(&item, false) == 0 ? item.filePath : "";
  }

  // The list removes the companions that joined the file; any other of its name goes here.
  void RemoveLeftCompanions(const Entry& entry) const {
    bool removed = false;
    for (const std::string& companion : entry.companions) {
      removed = (Exists(companion) && unlink(companion.c_str()) == 0) || removed;
    }
    if (!removed) return;
    const std::string folder = FolderOf(entry.Path());
    if (folder != newest_) RemoveFolder(folder);
    sync();
  }

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
  std::string newest_;             // the folder of the last file
  std::set<std::string> folders_;  // of the files to remove
  std::set<int> missing_;          // indexes
  size_t removed_ = 0;
  bool failed_ = false;
};

// The list's own operation flushes the card now and then instead of after every file. It gives up
// at the first file that cannot be removed, which is then the first one left that need not be kept.
int RunRemoveAll(Card& card, const RemoveOptions& options, const std::vector<Entry>& targets,
                 const std::string& creator) {
  WarnOfDroppedLines(card);
  Outcome outcome(card, options, targets);
  Progress progress(options.bulk.quiet);
  const int result = card.List().DeleteAll(options.force, Progress::Report);
  const bool gaveUp = result == kNotUnprotected || result == kNotRemoved;
  const bool finished = !progress.Cancelled() || card.Count() == 0;
  progress.Wipe();
  for (const Entry& entry : targets) {
    const bool reached = finished || !Exists(entry.Path());
    if (reached) outcome.Tell(entry);
    if (gaveUp && Exists(entry.Path()) && !IsKept(entry, options.force)) break;
  }
  outcome.TellFolders();
  if (result == kNotSaved) {
    throw Failure("the files are removed, but the print order " + card.Shown(PrintOrderPath()) +
                  " is not saved");
  }
  // The list does not notice when the order that it wrote is cut. Written once more it is compared.
  const bool rewritten = !gaveUp || HasPrintOrder();
  if (rewritten && outcome.Removed() > 0 && card.Count() > 0) SavePrintOrder(card, creator);
  return finished ? outcome.Status() : SayInterrupted(outcome.Removed(), targets.size());
}

int RunRemoveSome(Card& card, const RemoveOptions& options, std::vector<Entry>& targets) {
  Outcome outcome(card, options, targets);
  const size_t handled = ForEachTarget(targets, options.bulk.quiet, [&](Entry& entry) {
    if (!outcome.WasMissing(entry)) card.List().Delete(&entry.item, options.force, false);
  });
  for (size_t i = 0; i < handled; ++i) outcome.Tell(targets[i]);
  outcome.TellFolders();
  if (outcome.Removed() > 0 && HasPrintOrder()) {
    WarnOfDroppedLines(card);
    SavePrintOrder(card, PrintOrderCreator());
  }
  return handled == targets.size() ? outcome.Status()
                                   : SayInterrupted(outcome.Removed(), targets.size());
}

// Deletion writes the order again, in the place where it stands.
void RequireUsableOrder(Card& card) {
  if (IsLink(PrintOrderPath())) {
    throw Failure(card.Shown(PrintOrderPath()) + " is a link, and no print order is written to it");
  }
  if (!HasPrintOrder()) return;
  card.RequireReadable();
  RequireOrderable(card);
}

int RunRemove(const RemoveOptions& options) {
  BeginBulk(options.bulk);
  Card card(options.bulk.card, options.bulk.dryRun ? Access::kLook : Access::kChange);
  std::vector<Entry> targets = BulkTargets(card, options.bulk);
  for (Entry& entry : targets) AddOwnCompanions(entry);
  card.RequireTreesOnCard();
  // A protected file is unprotected first, and that follows links.
  RequireOnCard(card, targets, options.force ? Links::kFollowed : Links::kThemselves);
  RequireUsableOrder(card);
  if (options.bulk.dryRun) {
    return FinishBulk(card, options.bulk, DryRun(card, targets, options.force));
  }
  Confirm(options.bulk, "remove", targets.size());
  if (targets.empty()) return FinishBulk(card, options.bulk, kStatusDone);
  // Deletion rewrites the print order; whoever made it stays named in it.
  std::string creator = PrintOrderCreator();
  card.List().SetDPOFDevName(Arg(creator));
  const bool everything = options.bulk.all && !options.bulk.filter.IsSet();
  const int status = everything ? RunRemoveAll(card, options, targets, creator)
                                : RunRemoveSome(card, options, targets);
  return FinishBulk(card, options.bulk, status);
}

}  // namespace

void AddRemoveCommand(CLI::App& app, Action& action) {
  const auto options = std::make_shared<RemoveOptions>();
  CLI::App& remove = *app.add_subcommand("rm", "Remove files, with their companions");
  AddFooter(
      remove,
      "A folder that becomes empty is removed too, except the newest one. Protected files are kept "
      "unless --force is given.");
  AddBulkOptions(remove, options->bulk);
  remove.add_flag("-f,--force", options->force, "Remove protected files, too");
  remove.callback([options, &action] { action = [options] { return RunRemove(*options); }; });
}

}  // namespace flm::tool

// What protect, unprotect and rm have in common: which files, and whether the user means it.
#ifndef FILELISTMANAGEMENT_TOOLS_BULK_H
#define FILELISTMANAGEMENT_TOOLS_BULK_H

#include <functional>
#include <string>
#include <vector>

#include "entries.h"
#include "filter.h"

namespace CLI {
class App;
}

namespace flm::tool {

struct BulkOptions {
  CardOptions card;
  std::vector<std::string> files;
  Filter filter;
  bool all = false;
  bool yes = false;
  bool quiet = false;
  bool dryRun = false;
};

void AddBulkOptions(CLI::App& command, BulkOptions& options);

// Comes before the card is opened: throws Failure when no file is named, and from here on Ctrl-C
// ends the command between two files instead of anywhere.
void BeginBulk(const BulkOptions& options);

// The files that the options name and the filter lets through, in list order. Throws Failure when
// the filter lets none through.
std::vector<Entry> BulkTargets(Card& card, const BulkOptions& options);

// Whether an operation acts on a link itself, as removal does, or on what it leads to.
enum class Links { kThemselves, kFollowed };

// Throws Failure when a change of these files would reach out of the card.
void RequireOnCard(const Card& card, const std::vector<Entry>& targets, Links links);

// Asks on the terminal before more than one file is changed, unless the options say yes already.
// `act` is a verb, as in "remove 3 files?". Throws Failure when the answer is no or nobody can be
// asked, or when Ctrl-C came while the card was read.
void Confirm(const BulkOptions& options, const std::string& act, size_t files);

// Applies `act` to every file, from the first to the last so that folders are emptied before the
// newest one, with progress and until Ctrl-C. `act` prints nothing, since a bar may stand on the
// terminal. The number of files handled.
size_t ForEachTarget(std::vector<Entry>& targets, bool quiet,
                     const std::function<void(Entry&)>& act);

// The end of a command: where files were not named one by one, folders that cannot be read are
// told, since their files were not reached. The status, or that of a card read in part when it was
// "done".
int FinishBulk(const Card& card, const BulkOptions& options, int status);

// What to say after Ctrl-C; returns the status.
int SayInterrupted(size_t done, size_t files);

}  // namespace flm::tool

#endif

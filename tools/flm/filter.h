// Which files a command is about: those that are named, or all, less what a filter leaves out.
#ifndef FILELISTMANAGEMENT_TOOLS_FILTER_H
#define FILELISTMANAGEMENT_TOOLS_FILTER_H

#include <functional>
#include <string>
#include <vector>

#include "entries.h"
#include "failure.h"

namespace CLI {
class App;
}

namespace flm::tool {

struct Filter {
  bool onlyProtected = false;
  bool onlyUnprotected = false;
  bool onlySelected = false;
  bool onlyWithCompanion = false;
  std::vector<std::string> types;  // extensions; empty for all
  std::string since;               // date or date and time, "" for any

  bool IsSet() const;
};

void AddFilterOptions(CLI::App& command, Filter& filter);

// Seconds of "2024-03-05", "2024-03-05T09:07" or "2024-03-05T09:07:30" in local time, also with a
// blank for the T. False when the text is no such date.
bool ParseLocalTime(const std::string& text, std::time_t* time);

class Choice {
 public:
  // Without `files` every file of the card is meant. Throws Failure for one that is not there.
  Choice(Card& card, const std::vector<std::string>& files, const Filter& filter);

  // Whether not all files of the card are meant: then it is worth a word when there are none.
  bool IsNarrow() const { return narrow_; }

  // Calls `take` for each file, in list order, and says how many there were. The first reads no
  // file as long as the filter needs none. Both end early when nobody reads the output any more.
  int ForEachPath(const std::function<void(const char*)>& take);
  int ForEach(const std::function<void(const Entry&)>& take);

 private:
  template <class Take>
  int Walk(const Take& take);
  bool TakesType(const char* path) const;
  bool Takes(const Entry& entry) const;
  Entry ReadAsNeeded(int index) const;

  Card& card_;
  const Filter& filter_;
  bool narrow_;
  bool all_;
  std::vector<int> indexes_;        // with `files`
  std::vector<std::string> types_;  // in capitals
  std::time_t since_ = 0;
  bool readsFiles_;       // the filter asks for more than names
  bool readsCompanions_;  // or for the names of companions
};

// What a command ends with when a filter leaves nothing.
Failure NothingMatches();

}  // namespace flm::tool

#endif

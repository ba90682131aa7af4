// How new files are named: shared by new, next and import.
#ifndef FILELISTMANAGEMENT_TOOLS_NAMING_H
#define FILELISTMANAGEMENT_TOOLS_NAMING_H

#include <string>
#include <vector>

#include "card.h"

namespace CLI {
class App;
}

namespace flm::tool {

struct NamingOptions {
  CardOptions card;
  bool series = false;
  bool dateFiles = false;
  bool dateFolders = false;
  bool threeD = false;

  NamingOptions() { card.whole = true; }
};

struct Kind {
  const char* word;  // as the user names it; in capitals the extension
  int number;        // as the library takes it
};

extern const std::vector<Kind> kKinds;

// The kind of that name or extension, in either case; null for another one.
const Kind* FindKind(const std::string& word);

void AddNamingOptions(CLI::App& command, NamingOptions& options);

// Configures the list after its scan.
void ApplyNaming(Card& card, const NamingOptions& options);

// The words of all kinds, as in "jpg srw".
std::string KindWords();

// A reserved name.
struct NewName {
  std::string path;  // library path of the new file
  bool madeFolder;   // whether its folder had to be made
};

// Reserves the next name and makes its folder. With `series` the number must get into the
// preference store. Throws Failure, and no new folder is left then.
NewName ReserveName(Card& card, const Kind& kind, bool series);

// Says on standard error, once in a command, when the preference store does not hold the number of
// a name that was given out.
void WarnUnlessKept(const NewName& name);

// Prints the path of a new file. A program that asks for a name takes the path as it is; only a
// terminal is spared what the path to the card may hold.
void PrintNewPath(const Card& card, const std::string& path, bool nul);
void AddNul(CLI::App& command, bool& nul);

// Throws Failure unless one more file may be named.
void RequireRoom(Card& card);

// Throws Failure when the next name is that of a file already. With two folders of one number the
// numbering follows the files of one and the name may fall into the other.
void RequireFree(const Card& card, const std::string& path);

}  // namespace flm::tool

#endif

// Folders of the card that the list takes and that cannot be opened. The scan passes over their
// files without a word, so whatever counts on every file must know of them.
#ifndef FILELISTMANAGEMENT_TOOLS_UNREADABLE_H
#define FILELISTMANAGEMENT_TOOLS_UNREADABLE_H

#include <string>
#include <vector>

#include "card.h"
#include "failure.h"

namespace flm::tool {

struct Unreadable {
  std::string path;  // library path
  int error;         // why
};

// Folders below DCIM, in the order of their names; those without a number only if `nonDcf`.
std::vector<Unreadable> UnreadableFolders(bool nonDcf = true);

// "cannot read card/DCIM/101PHOTO: Permission denied".
std::string Describe(const Card& card, const Unreadable& folder);

// Names each of them on standard error, and returns the status of a command that shows the files of
// the others: done when there are none.
int TellUnreadable(const Card& card, bool nonDcf = true);

// What a command ends with that finds no such file: where a folder cannot be read it may be there.
Failure NotThere(const Card& card, const std::string& message);

// 0 when the folder can be listed and its files reached, else the error number.
int FolderError(const std::string& folder);

}  // namespace flm::tool

#endif

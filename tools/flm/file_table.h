// The table of files for people: as wide as it needs to be, or cut to the terminal.
#ifndef FILELISTMANAGEMENT_TOOLS_FILE_TABLE_H
#define FILELISTMANAGEMENT_TOOLS_FILE_TABLE_H

#include "filter.h"

namespace flm::tool {

// Prints the files of the choice; if `exact` with exact sizes and spelled-out marks, and as wide as
// that takes. How many there were.
int PrintFileTable(Card& card, Choice& choice, bool exact);

}  // namespace flm::tool

#endif

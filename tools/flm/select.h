// Which files the user means: an index, a range of indexes, a path, a name.
#ifndef FILELISTMANAGEMENT_TOOLS_SELECT_H
#define FILELISTMANAGEMENT_TOOLS_SELECT_H

#include <string>
#include <vector>

#include "card.h"

namespace flm::tool {

// What the help of every command says about its file arguments.
extern const char kOneFileHelp[];
extern const char kFilesHelp[];

// Whether the text is a list of indexes and ranges.
bool IsIndexList(const std::string& given);

// The index of one file, given as an index, as a path (absolute, beginning with the root as given,
// or relative to the card or its DCIM folder) or as a file name that occurs once. Throws Failure.
int SelectOne(Card& card, const std::string& given);

// The indexes of all files that the arguments name, ascending and each once. An argument may also
// be a list of indexes and ranges such as "1-5,8".
std::vector<int> SelectMany(Card& card, const std::vector<std::string>& given);

}  // namespace flm::tool

#endif

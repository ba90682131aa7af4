// The last number given out on any card, which this machine keeps in the preference store.
#ifndef FILELISTMANAGEMENT_TOOLS_SERIES_STORE_H
#define FILELISTMANAGEMENT_TOOLS_SERIES_STORE_H

#include "numbers.h"

namespace flm::tool {

// Folder 0 when nothing usable is stored.
FileNumber StoredNumber();

// Throws Failure, with the name of the store's file, when it cannot be written.
void StoreNumber(const FileNumber& number);

// Says on standard error, once in a command, when the store does not hold that number.
void WarnUnlessStored(const FileNumber& number);

// Throws Failure unless the store holds the number that the list should have put there: the list
// itself gives numbers out whether or not they could be stored.
void RequireStored(const FileNumber& number);

}  // namespace flm::tool

#endif

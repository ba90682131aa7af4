// What is done with a list of a card that a fuzzer made: one operation after the other, as an
// application would call them, on files that the list holds.
#ifndef FILELISTMANAGEMENT_FUZZ_CARD_OPERATIONS_H
#define FILELISTMANAGEMENT_FUZZ_CARD_OPERATIONS_H

#include "filelist/CQFileList.h"
#include "fuzz/input.h"

namespace flm_fuzz {

// Takes one operation and its arguments off the input and does it.
void DoOperation(Input& input, CQFileList& list);

}  // namespace flm_fuzz

#endif

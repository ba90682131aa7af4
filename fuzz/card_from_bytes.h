// A whole card from a string of bytes.
#ifndef FILELISTMANAGEMENT_FUZZ_CARD_FROM_BYTES_H
#define FILELISTMANAGEMENT_FUZZ_CARD_FROM_BYTES_H

#include "fuzz/input.h"
#include "fuzz/memory_card.h"

namespace flm_fuzz {

// Takes entries off the input until the one that ends the card: a byte that tells the kind, then
// what the kind needs. Each file goes into the folder that was made last.
//   0  a numbered folder: number, suffix      4  a "CAMERA" folder: name
//   1  a file: prefix, number, extension, how 5  files of consecutive numbers: how many, first
//   2  a file of any name: text               6  the print order: text
//   3  a folder of any name: text             7  the end
void MakeCard(Input& input, MemoryCard& card);

// What no operation of a list may touch: files that it does not list, and the neighbour.
void MakeBystanders(MemoryCard& card);
void CheckBystanders(const MemoryCard& card);

}  // namespace flm_fuzz

#endif

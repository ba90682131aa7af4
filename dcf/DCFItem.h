// The catalogue's compact record of one file.
#ifndef FILELISTMANAGEMENT_DCF_DCFITEM_H
#define FILELISTMANAGEMENT_DCF_DCFITEM_H

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "base/fixed_sizes.h"

// A fixed payload followed by two list links. The payload's order is fixed: marks are addressed by
// their position in it (item_layout.h), and sorting exchanges payloads and leaves links in place.
// A record is always a unit of the catalogue's pool, never allocated by itself.
struct DCFItem {
  int16_t fileNumber;   // bytes 0-1: 0 to 9999, a running number in "CAMERA"; negative: no file
  uint8_t dpofCopies;   // byte 2: prints ordered
  uint8_t itemBits;     // byte 3: see item_layout.h
  char prefixChars[4];  // bytes 4-7: the free characters in front of the number, no terminator
  char extChars[3];     // bytes 8-10: the last three characters of the name, no terminator
  char companionSrw;    // byte 11: 'S' when a raw companion was seen, else ' ' or 0
  char companionWav;    // byte 12: 'W' when a voice memo was seen, else ' ' or 0
  union {
    char companionMpo;  // byte 13: 'M' when a multi-picture file was seen, else ' ' or 0
    uint8_t dpofEdit;   // the same byte as the print edit value: setting one changes the other
  };
  uint8_t dpofIndex;                  // byte 14: in the index print
  uint8_t dpofSize;                   // byte 15: print size code
  uint32_t fileTime;                  // bytes 16-19: seconds since the epoch, 0 for not read yet
  int16_t dirNumber;                  // bytes 20-21: number of the directory that holds the file
  char fileName[flm::kFileNameSize];  // bytes 22-62: the whole name, NUL-terminated
  DCFItem* prev;                      // null at the ends
  DCFItem* next;

  void setFileTime(unsigned int t) { fileTime = t; }

  // Writes the file's time to `out`; reads it from the card first when it is not known, by the path
  // that the process-wide catalogue gives the item. 0 when it cannot be read, and asked again next
  // time. Null does nothing.
  void getFileTime(unsigned int* out);
};

static_assert(std::is_standard_layout<DCFItem>::value, "marks are addressed by position");
static_assert(offsetof(DCFItem, dpofCopies) == 2 && offsetof(DCFItem, itemBits) == 3 &&
                  offsetof(DCFItem, prefixChars) == 4 && offsetof(DCFItem, extChars) == 8 &&
                  offsetof(DCFItem, companionSrw) == 11 && offsetof(DCFItem, dpofEdit) == 13 &&
                  offsetof(DCFItem, dpofSize) == 15 && offsetof(DCFItem, fileTime) == 16 &&
                  offsetof(DCFItem, dirNumber) == 20 && offsetof(DCFItem, fileName) == 22,
              "the record's positions are part of the interface");

namespace flm {

constexpr size_t kItemPayloadSize = offsetof(DCFItem, prev);  // everything in front of the links
constexpr size_t kItemClearedSize = offsetof(DCFItem, fileTime);  // what a new item has zeroed

}  // namespace flm

#endif

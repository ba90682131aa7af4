// One file as applications see it. Storage access and the catalogue fill it too, so it lies below
// all of them; applications include it as CQFileListItem.h.
#ifndef FILELISTMANAGEMENT_FILE_LIST_ITEM_H
#define FILELISTMANAGEMENT_FILE_LIST_ITEM_H

#include <cstdint>

#include "base/flm_export.h"

// A plain record that the caller owns and the list fills. Its layout is part of the binary
// interface: fields are never reordered, and both paths are NUL-terminated texts of at most 127
// characters.
class FLM_API CQFileListItem {
 public:
  CQFileListItem();
  virtual ~CQFileListItem();
  CQFileListItem(const CQFileListItem&) = default;
  CQFileListItem& operator=(const CQFileListItem&) = default;

  char filePath[128];    // full path; the key by which every operation finds the file; "" for none
  uint8_t selected;      // selection mark, 0 or 1
  uint8_t isProtected;   // 1 when the file's owner-write permission is clear
  uint8_t reservedFlag;  // always 0; keeps its place for callers built against the layout
  uint8_t dpofCopies;    // number of prints ordered, 0 for none
  uint8_t dpofIndex;     // 1 when the file is in the index print
  int32_t dpofSize;      // print size code; -1 after construction
  uint8_t wifiFlag;      // mark for wireless transfer, 0 or 1
  char objectPath[128];  // the companions' path, see GetObjectFullPath; "" when there are none
  int32_t year;          // last modification in local time: four digits
  int32_t month;         // 1 to 12
  int32_t day;           // 1 to 31
  int32_t hour;          // 0 to 23
  int32_t minute;        // 0 to 59
  int32_t second;        // 0 to 59
  int32_t modTime;       // last modification, low 32 bits of the seconds since 1970-01-01 UTC
};

#endif

/// @file
/// One file as applications see it. Storage access and the catalogue fill it too, so it lies below
/// all of them; applications include it as CQFileListItem.h.
#ifndef FILELISTMANAGEMENT_FILE_LIST_ITEM_H
#define FILELISTMANAGEMENT_FILE_LIST_ITEM_H

#include <cstdint>

#include "base/flm_export.h"

/// A plain record that the caller owns and the list fills.
///
/// Its layout is part of the binary interface: fields are never reordered, and both paths are
/// NUL-terminated texts of at most 127 characters. What an operation does not fill stays as it was:
/// see the walks of IQFileList.
class FLM_API CQFileListItem {
 public:
  /// No file: both paths empty, every number and mark 0, dpofSize -1.
  CQFileListItem();
  virtual ~CQFileListItem();

  /// A plain copy of every field.
  CQFileListItem(const CQFileListItem&) = default;

  /// A plain copy of every field.
  /// @return this item
  CQFileListItem& operator=(const CQFileListItem&) = default;

  /// Full path; the key by which every operation finds the file; "" for none.
  char filePath[128];
  uint8_t selected;      ///< selection mark, 0 or 1
  uint8_t isProtected;   ///< 1 when the file's owner-write permission is clear
  uint8_t reservedFlag;  ///< always 0; keeps its place for callers built against the layout
  uint8_t dpofCopies;    ///< number of prints ordered, 0 for none
  uint8_t dpofIndex;     ///< 1 when the file is in the index print
  int32_t dpofSize;      ///< print size code, 0 for none; -1 after construction
  uint8_t wifiFlag;      ///< mark for wireless transfer, 0 or 1
  /// The companions' path, which ends in their letters in place of an extension ("S", "W" and "M"
  /// or blanks): hand it to IQFileList::GetObjectFullPath. "" when there are none.
  char objectPath[128];
  int32_t year;     ///< last modification in local time: four digits
  int32_t month;    ///< 1 to 12
  int32_t day;      ///< 1 to 31
  int32_t hour;     ///< 0 to 23
  int32_t minute;   ///< 0 to 59
  int32_t second;   ///< 0 to 59
  int32_t modTime;  ///< last modification, low 32 bits of the seconds since 1970-01-01 UTC
};

#endif

// What several sources of CQFileList share and nobody else needs.
#ifndef FILELISTMANAGEMENT_FILELIST_CQFILELIST_INTERNAL_H
#define FILELISTMANAGEMENT_FILELIST_CQFILELIST_INTERNAL_H

#include <initializer_list>

#include "base/bounded_text.h"
#include "base/fixed_sizes.h"
#include "dcf/file_marks.h"
#include "filelist/CQFileList.h"

namespace flm {

// Whether an item has a path at all. One that fills its field without an end names no file: reading
// it would run into the fields behind it.
inline bool NamesFile(const CQFileListItem* item) {
  return item != nullptr && item->filePath[0] != '\0' &&
         BoundedLength(item->filePath, kPathSize) < kPathSize;
}

constexpr int kPrintInfoNotHeld = -100;  // a print mark of a file that the list does not hold
constexpr int kBulkCancelled = 10000;    // the callback stopped a bulk operation

// Writes marks into the fields of an item, each as the list's own read of the mark gives it.
void StoreMarks(CQFileListItem* item, const FileMarks& marks);

// Calls act(path) for each companion of an item: raw, voice memo, multi-picture, in this order.
template <typename Act>
void ForEachCompanion(CQFileList& list, CQFileListItem* item, Act act) {
  char path[kPathSize];
  for (const eFileType kind : {FILE_TYPE_RAW, FILE_TYPE_VOICE_MEMO, FILE_TYPE_MULTI_PICTURE}) {
    if (list.GetObjectFullPath(item, kind, path, kPathSize) >= 0) act(path);
  }
}

}  // namespace flm

#endif

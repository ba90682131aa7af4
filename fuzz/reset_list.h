// A list as it was constructed, but with its catalogue, which takes long to make.
#ifndef FILELISTMANAGEMENT_FUZZ_RESET_LIST_H
#define FILELISTMANAGEMENT_FUZZ_RESET_LIST_H

#include "dcf/CQDCFList.h"
#include "filelist/CQFileList.h"
#include "fuzz/memory_card.h"
#include "fuzz/memory_preference.h"

namespace flm_fuzz {

constexpr int kListType = 4;  // what the flat functions list

inline void ResetCursors(CQFileList& list) {
  list.SetCur(nullptr);
  if (list.GetDCFList() != nullptr) list.GetDCFList()->SetBitCurFile(-1, -1, -1, nullptr);
}

inline void ResetList(CQFileList& list) {
  char noName[] = "";
  storedNumber = -1;
  list.SetType(kListType);
  list.SetBaseURI(kRoot);
  list.IncludeNonDCF(true);
  list.SetSeriesMode(false);
  list.SetFileNameMake(FILE_NAME_MAKE_FIXED);
  list.SetFolderNameMake(FILE_NAME_MAKE_FIXED);
  list.SetFileNameColor(FILELIST_COLOR_SRGB);
  list.SetImageType(FILELIST_IMAGE_ORDINARY);
  list.SetDPOFDevName(noName);
  list.SetLastUpdated(0);
  list.InitPage(-1);
  list.FreeList();
  ResetCursors(list);
}

}  // namespace flm_fuzz

#endif

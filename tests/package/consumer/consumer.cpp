// An application of the installed package: lists the card at argv[1] through the classes, and asks
// the flat functions whether they are there.
#include <filelistmanagement/CBIFileListManager.h>
#include <filelistmanagement/CQFileListItem.h>
#include <filelistmanagement/IQFileList.h>
#include <filelistmanagement/flm.h>

#include <cstdio>

int main(int argc, char** argv) {
  if (argc != 2 || _flm_range_check(FILELIST_SD0) != 1) return 2;
  CBIFileListManager::Create(1);
  CBIFileListManager::SetURIToFileList(0, argv[1], 4, false);
  IQFileList* const list = CBIFileListManager::GetFileList(argv[1], 4);
  const int files = list->Listup(0);
  CQFileListItem item;
  for (int index = 0; index < files; ++index) {
    if (list->GetAt(index, &item, true) == 0) std::printf("%d %s\n", index, item.filePath);
  }
  CBIFileListManager::Destroy();
  return files == 2 ? 0 : 1;
}

// What surrounds a fragment of the documentation: a list of the card that was scanned, its pages
// and its selected files.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <filelistmanagement/CBIFileListManager.h>
#include <filelistmanagement/IQFileList.h>
#include <filelistmanagement/IQPageUtil.h>
#include <filelistmanagement/IQSelectedFileList.h>

[[maybe_unused]] static void Fragment([[maybe_unused]] IQFileList& list,
                                      [[maybe_unused]] IQPageUtil& pages,
                                      [[maybe_unused]] IQSelectedFileList& selected) {
  // The fragment stands here.
}

int main(int /*argc*/, char** argv) {
  char* const root = argv[1];
  CBIFileListManager::Create(1);
  CBIFileListManager::SetURIToFileList(0, root, 4, false);
  IQFileList* const list = CBIFileListManager::GetFileList(root, 4);
  if (list->Listup(0) < 0) std::exit(1);
  Fragment(*list, *CBIFileListManager::GetPageUtil(root, 4),
           *CBIFileListManager::GetSelectedFileList(root, 4));
  CBIFileListManager::Destroy();
  return 0;
}

// Playback: show the card page by page, protect the first file, delete the selected ones with
// progress, and stop after the number of deletions that the user allows.
//
//   playback ROOT [MOST]

#include <cstdio>
#include <cstdlib>
#include <vector>

#include <filelistmanagement/CBIFileListManager.h>
#include <filelistmanagement/IQFileList.h>
#include <filelistmanagement/IQPageUtil.h>
#include <filelistmanagement/IQSelectedFileList.h>

namespace {

constexpr int kListType = 4;
constexpr int kPageSize = 4;
constexpr int kCancelled = 10000;

int mostDeletions = 1000;

void ShowPages(IQPageUtil& pages) {
  std::vector<CQFileListItem> items(kPageSize);
  pages.InitPage(kPageSize);
  for (int page = 0; page < pages.GetPageTotalCount(); ++page) {
    const int shown = pages.GetPageAt(page, items.data());
    std::printf("page %d\n", page);
    for (int i = 0; i < shown; ++i) std::printf("  %s\n", items[static_cast<size_t>(i)].filePath);
  }
}

// Called after each file; a negative status says why a file was kept.
void ShowProgress(int index, int total, int* status, bool* cancel) {
  std::printf("%d of %d%s\n", index + 1, total, *status < 0 ? ", kept" : "");
  *cancel = index + 1 >= mostDeletions;
}

void SelectEverySecond(IQFileList& list) {
  CQFileListItem item;
  for (int index = 0; index < list.GetCount(); index += 2) {
    if (list.GetAt(index, &item, false) >= 0) list.SetSel(&item, true);
  }
}

int Play(IQFileList& list, IQSelectedFileList& selected, IQPageUtil& pages) {
  if (list.Listup(0) < 1) return 1;
  ShowPages(pages);

  CQFileListItem first;
  if (list.GetFirst(&first, true) < 0 || list.SetProtect(&first, true) < 0) return 1;
  std::printf("protected %s\n", first.filePath);

  SelectEverySecond(list);
  const int result = selected.DeleteSel(false, ShowProgress);
  if (result == kCancelled) std::printf("stopped\n");
  std::printf("%d files left\n", list.GetCount());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: playback ROOT [MOST]\n");
    return 2;
  }
  if (argc > 2) mostDeletions = std::atoi(argv[2]);
  CBIFileListManager::Create(1);
  CBIFileListManager::SetURIToFileList(0, argv[1], kListType, false);
  IQFileList* const list = CBIFileListManager::GetFileList(argv[1], kListType);
  const int status = list == nullptr
                         ? 1
                         : Play(*list, *CBIFileListManager::GetSelectedFileList(argv[1], kListType),
                                *CBIFileListManager::GetPageUtil(argv[1], kListType));
  if (status != 0) std::fprintf(stderr, "playback: nothing to show on %s\n", argv[1]);
  CBIFileListManager::Destroy();
  return status;
}

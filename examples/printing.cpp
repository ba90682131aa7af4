// Printing: order two prints of the first picture and an index print, save the order, forget it,
// and read it back from the card.
//
//   printing ROOT

#include <cstdio>

#include <filelistmanagement/CBIFileListManager.h>
#include <filelistmanagement/IQFileList.h>

namespace {

constexpr int kListType = 4;

void ShowOrder(IQFileList& list, const char* when) {
  std::printf("%s\n", when);
  CQFileListItem item;
  for (int index = 0; index < list.GetCount(); ++index) {
    if (list.GetAt(index, &item, true) < 0 || item.dpofCopies == 0) continue;
    std::printf("  %s: %d prints%s\n", item.filePath, item.dpofCopies,
                item.dpofIndex != 0 ? ", in the index print" : "");
  }
}

int Print(IQFileList& list) {
  if (list.Listup(0) < 1) return 1;
  CQFileListItem picture;
  int ordered = -1;
  // Only pictures can be ordered: a movie refuses.
  for (int step = list.GetFirst(&picture, false); step >= 0 && ordered < 0;) {
    ordered = list.SetDPOF(&picture, 2);
    if (ordered < 0) step = list.GetNext(&picture, false);
  }
  if (ordered < 0) return 1;
  list.SetDPOFIndex(true);
  ShowOrder(list, "ordered");

  char creator[] = "EXAMPLE";
  if (list.SaveDPOFInfo(nullptr, creator) < 0) return 1;
  // Loading sets what the file names and clears nothing, so the marks are cleared first.
  list.SetDPOFAll(0);
  list.SetDPOFSizeAll(0);
  list.SetDPOFIndex(false);
  ShowOrder(list, "forgotten");
  if (list.LoadDPOFInfo(nullptr) < 0) return 1;
  ShowOrder(list, "read back");
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: printing ROOT\n");
    return 2;
  }
  CBIFileListManager::Create(1);
  CBIFileListManager::SetURIToFileList(0, argv[1], kListType, false);
  IQFileList* const list = CBIFileListManager::GetFileList(argv[1], kListType);
  const int status = list == nullptr ? 1 : Print(*list);
  if (status != 0) std::fprintf(stderr, "printing: no order could be made on %s\n", argv[1]);
  CBIFileListManager::Destroy();
  return status;
}

#include "bench/operations.h"

#include <cstring>
#include <random>

#include "bench/floors.h"
#include "bench/measure.h"
#include "filelist/IQFileList.h"
#include "filelist/IQPageUtil.h"
#include "filelist/IQSelectedFileList.h"

namespace flm::bench {
namespace {

constexpr int kEverything = 0;
constexpr int kStopAtFirst = 1;
constexpr int kPageSize = 20;

char* DefaultPath() { return nullptr; }

}  // namespace

void Scan(IQFileList& list, int files) {
  Require(list.Listup(kEverything) == files, "a scan did not find every file");
}

void ScanNewest(IQFileList& list, int files) {
  Require(list.Listup(kStopAtFirst) == files, "a scan did not find the files of the newest folder");
}

void GetEach(IQFileList& list, int files, bool withInfo) {
  CQFileListItem item;
  int found = 0;
  for (int index = 0; index < files; ++index) {
    if (list.GetAt(index, &item, withInfo) == 0) ++found;
  }
  Require(found == files, "GetAt did not give every file");
}

void WalkForward(IQFileList& list, int files, bool withInfo) {
  CQFileListItem item;
  int found = 0;
  while (list.GetNext(&item, withInfo) == 0) ++found;
  Require(found == files, "GetNext did not reach every file");
}

void WalkBackward(IQFileList& list, int files, bool withInfo) {
  CQFileListItem item;
  int found = 0;
  int step = list.GetLast(&item, withInfo);
  for (; step == 0; step = list.GetPrev(&item, withInfo)) ++found;
  Require(found == files, "GetPrev did not reach every file");
}

void ShowEachPage(IQPageUtil& pages, int files) {
  CQFileListItem items[kPageSize];
  pages.InitPage(kPageSize);
  int shown = pages.GetFirstPage(items);
  const int total = pages.GetPageTotalCount();
  for (int page = 1; page < total; ++page) shown += pages.GetNextPage(items);
  Require(shown == files && pages.GetCurPageNum() == total - 1, "pages left a file out");
}

void CheckPaths(IQFileList& list, const std::vector<std::string>& paths) {
  CQFileListItem item;
  int index = 0;
  for (const std::string& path : paths) {
    Require(list.GetAt(index++, &item, false) == 0 && path == item.filePath,
            "GetAt gave another file than the one at the index");
  }
}

void OrderEach(IQFileList& list) {
  Require(list.SetDPOFAll(kCopies) == 0 && list.SetDPOFIndex(true) == 0 &&
              list.SetDPOFSizeAll(kSizeCode) == 0,
          "the print marks could not be set");
}

void SaveOrder(IQFileList& list) {
  std::string creator = kCreator;
  Require(list.SaveDPOFInfo(DefaultPath(), creator.data()) == 0, "the print order was not saved");
}

void LoadOrder(IQFileList& list) {
  Require(list.LoadDPOFInfo(DefaultPath()) == 0, "the print order was not loaded");
}

void CheckOrder(IQFileList& list, int files) {
  CQFileListItem item;
  for (int index = 0; index < files; ++index) {
    Require(list.GetAt(index, &item, false) == 0 && list.GetDPOFNumOfCopy(&item) == kCopies &&
                list.GetDPOFIndex(&item) && list.GetDPOFSize(&item) == kSizeCode,
            "a file has other print marks than the order gives it");
  }
}

int SelectEveryNth(IQFileList& list, const std::vector<std::string>& paths, size_t step) {
  list.SetSelAll(false);
  int selected = 0;
  for (size_t i = step / 2; i < paths.size(); i += step) {
    CQFileListItem item = ItemOf(paths[i]);
    Require(list.SetSel(&item, true) == 0, "a file could not be selected");
    ++selected;
  }
  return selected;
}

void WalkSelected(IQSelectedFileList& list, int selected) {
  CQFileListItem item;
  int found = 0;
  for (int step = list.GetSelFirst(&item); step == 0; step = list.GetSelNext(&item)) ++found;
  Require(found == selected, "the walk did not reach every selected file");
}

std::vector<CQFileListItem> PickAtRandom(const std::vector<std::string>& paths, size_t count) {
  std::mt19937 random;  // its default seed, which the language fixes
  std::vector<CQFileListItem> items;
  items.reserve(count);
  while (items.size() < count) items.push_back(ItemOf(paths[random() % paths.size()]));
  return items;
}

CQFileListItem ItemOf(const std::string& path) {
  CQFileListItem item;
  std::strncpy(item.filePath, path.c_str(), sizeof(item.filePath) - 1);
  return item;
}

}  // namespace flm::bench

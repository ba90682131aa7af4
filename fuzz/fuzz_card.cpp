// A whole card from a string of bytes, and a list on it: after the scan and again after a sequence
// of operations, the list agrees with itself, and nothing on the card that it does not list was
// touched.
//
// Input: type of the list, switches, stored number, the card (card_from_bytes.h), the operations.
#include <algorithm>
#include <climits>
#include <cstring>
#include <string>
#include <vector>

#include "api/flm.h"
#include "fuzz/card_from_bytes.h"
#include "fuzz/card_operations.h"
#include "fuzz/reset_list.h"

namespace {

using flm_fuzz::Fail;
using Paths = std::vector<std::string>;

constexpr int kTypes[] = {4, 4, 4, 0, 2, 3, 1};
constexpr uint8_t kFreshCatalogue = 0xF0;  // switches that ask for a new one, which takes long
constexpr int kMostOperations = 24;
constexpr int kMostSteps = 40000;
constexpr int kPageFiles = 7;
constexpr long kStoredNumbers[] = {-1, 0, 10000012, 10309999, 99909998, 99909999, 5, LONG_MAX};

CQFileList& TheList() {
  flm_fuzz::MemoryCard::Get();
  static IQFileList* const list = _flm_get_isfilelist(FILELIST_MMC);
  return *static_cast<CQFileList*>(list);
}

void CheckPlace(const char* path) {
  const std::string root = std::string(flm_fuzz::kRoot) + "/";
  if (std::strncmp(path, root.c_str(), root.size()) != 0) Fail("not below the root:", path);
  if (std::strstr(path, "/../") != nullptr) Fail("climbs:", path);
}

Paths WalkForward(CQFileList& list) {
  Paths paths;
  CQFileListItem item;
  for (int found = list.GetFirst(&item, true); found >= 0; found = list.GetNext(&item, false)) {
    CheckPlace(item.filePath);
    paths.push_back(item.filePath);
    if (paths.size() > kMostSteps) Fail("a walk without an end");
  }
  return paths;
}

Paths WalkBackward(CQFileList& list) {
  Paths paths;
  CQFileListItem item;
  for (int found = list.GetLast(&item, false); found >= 0; found = list.GetPrev(&item, false)) {
    paths.push_back(item.filePath);
    if (paths.size() > kMostSteps) Fail("a walk without an end");
  }
  std::reverse(paths.begin(), paths.end());
  return paths;
}

void CheckSelection(CQFileList& list, const Paths& paths) {
  list.SetSelAll(true);
  if (list.GetSelCount() != static_cast<int>(paths.size())) Fail("selected are others than all");
  CQFileListItem item;
  size_t i = 0;
  for (int found = list.GetSelFirst(&item); found >= 0; found = list.GetSelNext(&item), ++i) {
    if (i >= paths.size() || paths[i] != item.filePath) Fail("selected differs:", item.filePath);
  }
  if (i != paths.size()) Fail("not all selected were walked");
  list.SetSelAll(false);
  if (list.GetSelCount() != 0) Fail("something stays selected");
}

void CheckPages(CQFileList& list, const Paths& paths) {
  const int count = static_cast<int>(paths.size());
  CQFileListItem items[kPageFiles];
  list.InitPage(kPageFiles);
  const int pages = (count + kPageFiles - 1) / kPageFiles;
  if (list.GetPageTotalCount() != pages) Fail("another number of pages");
  const int first = list.GetFirstPage(items);
  if (first != std::min(count, kPageFiles)) Fail("the first page is of another length");
  for (int k = 0; k < first; ++k) {
    if (paths[static_cast<size_t>(k)] != items[k].filePath) Fail("other files on the first page");
  }
  if (count == 0) return;
  const int last = list.GetLastPage(items);
  const int begin = (pages - 1) * kPageFiles;
  if (last != count - begin) Fail("the last page is of another length");
  for (int k = 0; k < last; ++k) {
    if (paths[static_cast<size_t>(begin + k)] != items[k].filePath) Fail("other files on the last");
  }
}

// A list of everything: however it is asked for its files, they are the same.
void CheckWholeList(CQFileList& list, int listed) {
  if (list.GetCount() != listed || list.DCF_GetCount() != listed) Fail("two counts");
  const Paths paths = WalkForward(list);
  if (paths.size() != static_cast<size_t>(listed)) Fail("the walk has another length");
  if (listed > 0 && WalkBackward(list) != paths) Fail("another walk back");
  CQFileListItem item;
  for (int i = 0; i < listed; ++i) {
    if (list.GetAt(i, &item, (i & 1) != 0) < 0) Fail("no file at a position");
    if (paths[static_cast<size_t>(i)] != item.filePath) Fail("another file at:", item.filePath);
  }
  if (list.GetAt(listed, &item, false) >= 0) Fail("a file behind the last");
  CheckSelection(list, paths);
  CheckPages(list, paths);
}

// A list that stopped at the first folder with files reads the others on the way.
void CheckPartialList(CQFileList& list, int listed) {
  if (list.GetCount() != listed) Fail("two counts");
  WalkForward(list);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  CQFileList& list = TheList();
  flm_fuzz::MemoryCard& card = flm_fuzz::MemoryCard::Get();
  flm_fuzz::Input input(data, size);
  const int type = kTypes[input.Below(sizeof(kTypes) / sizeof(kTypes[0]))];
  const uint8_t switches = input.Byte();
  card.Clear();
  flm_fuzz::MakeBystanders(card);
  if ((switches & kFreshCatalogue) == kFreshCatalogue) list.Destroy();
  flm_fuzz::ResetList(list);
  flm_fuzz::storedNumber = kStoredNumbers[input.Below(sizeof(kStoredNumbers) / sizeof(long))];
  flm_fuzz::MakeCard(input, card);

  list.SetType(type);
  list.IncludeNonDCF((switches & 1) == 0);
  const bool partial = (switches & 2) != 0;
  const int listed = list.Listup(partial ? 1 : 0);
  list.SetSeriesMode((switches & 4) != 0);
  if (listed < 0) {
    // Some types list "VIDEO" and make "DCIM".
    if (card.Exists("/mnt/mmc/VIDEO")) Fail("the card cannot be listed");
  } else if ((switches & 8) == 0) {
    partial ? CheckPartialList(list, listed) : CheckWholeList(list, listed);
  }

  for (int i = 0; i < kMostOperations && !input.Ended(); ++i) flm_fuzz::DoOperation(input, list);
  const int again = list.Listup(0);
  if (again >= 0) CheckWholeList(list, again);
  flm_fuzz::CheckBystanders(card);
  if (!card.AllClosed()) Fail("a file stays open");
  return 0;
}

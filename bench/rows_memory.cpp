// What lists take from the heap: bytes, and numbers of allocations.
#include <ctime>

#include "base/fixed_sizes.h"
#include "bench/card.h"
#include "bench/heap.h"
#include "bench/lists.h"
#include "bench/measure.h"
#include "bench/operations.h"
#include "bench/rows.h"
#include "dcf/DCFItem.h"
#include "filelist/IQFileList.h"

namespace flm::bench {
namespace {

constexpr double kNoFloor = 0;

Measured CatalogueBytes(const Setting& setting) {
  const SampleCard card(NewRoot(setting.folder), EvenLayout(setting.files));
  const HeapCounter counter;
  Lists lists(card);
  Scan(lists.Files(), card.Pictures());
  constexpr double kPool = static_cast<double>(flm::kMaxFiles) * sizeof(DCFItem);
  return {card.Pictures(), static_cast<double>(HeapCounter::BytesInUse()), kPool};
}

Measured ScanAllocations(const Setting& setting) {
  const SampleCard card(NewRoot(setting.folder), EvenLayout(setting.files));
  Lists lists(card);
  const HeapCounter counter;
  Scan(lists.Files(), card.Pictures());
  const double perFolder = static_cast<double>(HeapCounter::Allocations()) / card.Layout().folders;
  return {card.Pictures(), perFolder, kNoFloor};
}

using Use = void (*)(IQFileList& list, std::vector<CQFileListItem>& items);

// Allocations while a scanned list is used, each file once.
Measured AllocationsOf(const Setting& setting, Use use) {
  const SampleCard card(NewRoot(setting.folder), EvenLayout(setting.files));
  std::vector<CQFileListItem> items;
  for (const std::string& path : card.Paths()) items.push_back(ItemOf(path));
  Lists lists(card);
  Scan(lists.Files(), card.Pictures());
  tzset();  // reads the time zone into the heap once for the whole process
  const HeapCounter counter;
  use(lists.Files(), items);
  return {card.Pictures(), static_cast<double>(HeapCounter::Allocations()), kNoFloor};
}

Measured InGetAt(const Setting& setting) {
  return AllocationsOf(setting, [](IQFileList& list, std::vector<CQFileListItem>& items) {
    GetEach(list, static_cast<int>(items.size()), false);
    GetEach(list, static_cast<int>(items.size()), true);
  });
}

Measured InGetNext(const Setting& setting) {
  return AllocationsOf(setting, [](IQFileList& list, std::vector<CQFileListItem>& items) {
    WalkForward(list, static_cast<int>(items.size()), true);
  });
}

Measured InGetPrev(const Setting& setting) {
  return AllocationsOf(setting, [](IQFileList& list, std::vector<CQFileListItem>& items) {
    WalkBackward(list, static_cast<int>(items.size()), true);
  });
}

Measured InMarks(const Setting& setting) {
  return AllocationsOf(setting, [](IQFileList& list, std::vector<CQFileListItem>& items) {
    for (CQFileListItem& item : items) {
      Require(list.SetSel(&item, true) == 0 && list.IsSel(&item), "a mark did not stay");
    }
  });
}

Measured InIsExist(const Setting& setting) {
  return AllocationsOf(setting, [](IQFileList& list, std::vector<CQFileListItem>& items) {
    for (CQFileListItem& item : items) {
      Require(list.IsExist(item.filePath) == 1, "a file was not found");
    }
  });
}

}  // namespace

std::vector<Row> MemoryRows() {
  constexpr double kPerFolder = 32;
  return {
      {"G13", "heap of a full catalogue (bytes) / pool of its records", GoalKind::kRatio, 1.25,
       CatalogueBytes},
      {"G14a", "scan, allocations a folder (count)", GoalKind::kValue, kPerFolder, ScanAllocations},
      {"G14b", "GetAt, allocations (count)", GoalKind::kValue, 0, InGetAt},
      {"G14c", "GetNext, allocations (count)", GoalKind::kValue, 0, InGetNext},
      {"G14d", "GetPrev, allocations (count)", GoalKind::kValue, 0, InGetPrev},
      {"G14e", "SetSel and IsSel, allocations (count)", GoalKind::kValue, 0, InMarks},
      {"G14f", "IsExist, allocations (count)", GoalKind::kValue, 0, InIsExist},
  };
}

}  // namespace flm::bench

// Operations whose instructions are counted: a tool outside collects between the beginning and the
// end of flm_counted_operation, so that preparing and checking do not count. Everything that could
// differ from run to run is fixed: the root is a relative path, so that its length is always the
// same, the folder is made in one order, and files are picked with a fixed seed.
#include <unistd.h>

#include "bench/card.h"
#include "bench/counted_operation.h"
#include "bench/lists.h"
#include "bench/measure.h"
#include "bench/operations.h"
#include "bench/rows.h"
#include "filelist/IQFileList.h"

namespace flm::bench {
namespace {

constexpr char kRoot[] = "card";

void CountScan(IQFileList& list, const SampleCard& card) {
  flm_counted_operation([&] { Scan(list, card.Pictures()); });
}

void CountIndexedAccess(IQFileList& list, const SampleCard& card) {
  flm_counted_operation([&] { GetEach(list, card.Pictures(), false); });
}

void CountForwardWalk(IQFileList& list, const SampleCard& card) {
  flm_counted_operation([&] { WalkForward(list, card.Pictures(), true); });
}

void CountPrintOrderLoad(IQFileList& list, const SampleCard& card) {
  OrderEach(list);
  SaveOrder(list);
  Scan(list, card.Pictures());
  flm_counted_operation([&] { LoadOrder(list); });
  CheckOrder(list, card.Pictures());
}

void CountMarksAndLookUps(IQFileList& list, const SampleCard& card) {
  std::vector<CQFileListItem> items =
      PickAtRandom(card.Paths(), static_cast<size_t>(card.Pictures()));
  size_t right = 0;
  flm_counted_operation([&] {
    for (CQFileListItem& item : items) {
      const bool marked = list.SetSel(&item, true) == 0 && list.IsSel(&item);
      const bool found = list.IsExist(item.filePath) == 1 && list.GetFileListIndex(&item) >= 0;
      if (marked && found) ++right;
    }
  });
  Require(right == items.size(), "a mark or a look-up failed");
}

struct Counted {
  const char* name;
  void (*run)(IQFileList& list, const SampleCard& card);
};

constexpr Counted kCounted[] = {
    {"scan", CountScan},
    {"indexed-access", CountIndexedAccess},
    {"forward-walk", CountForwardWalk},
    {"print-order-load", CountPrintOrderLoad},
    {"marks-and-look-ups", CountMarksAndLookUps},
};

}  // namespace

std::vector<std::string> CountedOperations() {
  std::vector<std::string> names;
  for (const Counted& counted : kCounted) names.emplace_back(counted.name);
  return names;
}

void RunCountedOperation(const std::string& name, const Setting& setting) {
  Require(chdir(setting.folder.c_str()) == 0, "the folder cannot be entered");
  for (const Counted& counted : kCounted) {
    if (name != counted.name) continue;
    const SampleCard card(kRoot, EvenLayout(setting.files));
    Lists lists(card);
    Scan(lists.Files(), card.Pictures());
    counted.run(lists.Files(), card);
    return;
  }
  Require(false, "no such operation");
}

}  // namespace flm::bench

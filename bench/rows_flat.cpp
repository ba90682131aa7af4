// Calls whose time must not depend on how many files there are: milliseconds of one call on a large
// card, held against the same call on a small one. Both lists live side by side in the process.
#include <cstring>

#include "bench/card.h"
#include "bench/lists.h"
#include "bench/measure.h"
#include "bench/operations.h"
#include "bench/rows.h"
#include "filelist/IQFileList.h"

namespace flm::bench {
namespace {

constexpr int kSmallCard = 4000;
constexpr size_t kCalls = 2000;  // a round makes as many on either card
constexpr double kFlatGoal = 1.20;

// One list and the files that the calls ask for.
struct Side {
  Side(IQFileList& files, const SampleCard& card)
      : list(files), items(PickAtRandom(card.Paths(), kCalls)) {
    Scan(list, card.Pictures());
    for (CQFileListItem& item : items) indexes.push_back(list.GetFileListIndex(item.filePath));
  }

  IQFileList& list;
  std::vector<CQFileListItem> items;
  std::vector<int> indexes;
};

using Call = bool (*)(IQFileList& list, CQFileListItem& item, int index);

void MakeCalls(Side& side, Call call) {
  size_t right = 0;
  for (size_t i = 0; i < kCalls; ++i) {
    if (call(side.list, side.items[i], side.indexes[i])) ++right;
  }
  Require(right == kCalls, "a call failed");
}

Measured MeasureCall(const Setting& setting, Call call) {
  const SampleCard large(NewRoot(setting.folder), EvenLayout(setting.files));
  const SampleCard small(NewRoot(setting.folder), EvenLayout(kSmallCard));
  Lists lists({&large, &small});
  Side largeSide(lists.Files(0), large);
  Side smallSide(lists.Files(1), small);
  largeSide.list.SetSelAll(true);
  smallSide.list.SetSelAll(true);
  const Times times =
      MeasureInTurn({[&] { MakeCalls(largeSide, call); }, [&] { MakeCalls(smallSide, call); }});
  return {large.Pictures(), times.operation / kCalls, times.floor / kCalls};
}

Measured SelectedWalk(const Setting& setting) {
  constexpr size_t kOneIn = 50;
  const SampleCard large(NewRoot(setting.folder), EvenLayout(setting.files));
  const SampleCard small(NewRoot(setting.folder), EvenLayout(kSmallCard));
  Lists lists({&large, &small});
  Scan(lists.Files(0), large.Pictures());
  Scan(lists.Files(1), small.Pictures());
  const int inLarge = SelectEveryNth(lists.Files(0), large.Paths(), kOneIn);
  const int inSmall = SelectEveryNth(lists.Files(1), small.Paths(), kOneIn);
  const int smallWalks = inLarge / inSmall;  // as many steps as one walk over the large card
  const Times times = MeasureInTurn({[&] { WalkSelected(lists.Selected(0), inLarge); },
                                     [&] {
                                       for (int walk = 0; walk < smallWalks; ++walk)
                                         WalkSelected(lists.Selected(1), inSmall);
                                     }});
  return {large.Pictures(), times.operation / inLarge, times.floor / (smallWalks * inSmall)};
}

Measured SetMark(const Setting& setting) {
  return MeasureCall(setting, [](IQFileList& list, CQFileListItem& item, int /*index*/) {
    return list.SetSel(&item, true) == 0;
  });
}

Measured TestMark(const Setting& setting) {
  return MeasureCall(setting, [](IQFileList& list, CQFileListItem& item, int /*index*/) {
    return list.IsSel(&item);
  });
}

Measured Existence(const Setting& setting) {
  return MeasureCall(setting, [](IQFileList& list, CQFileListItem& item, int /*index*/) {
    return list.IsExist(item.filePath) == 1;
  });
}

Measured IndexOfPath(const Setting& setting) {
  return MeasureCall(setting, [](IQFileList& list, CQFileListItem& item, int index) {
    return list.GetFileListIndex(item.filePath) == index;
  });
}

Measured FileAtIndex(const Setting& setting) {
  return MeasureCall(setting, [](IQFileList& list, CQFileListItem& item, int index) {
    CQFileListItem found;
    return list.GetAt(index, &found, false) == 0 && std::strcmp(found.filePath, item.filePath) == 0;
  });
}

Measured CursorByPath(const Setting& setting) {
  return MeasureCall(setting, [](IQFileList& list, CQFileListItem& item, int index) {
    return list.SetCur(item.filePath) == 0 && list.GetCurIndex() == index;
  });
}

}  // namespace

std::vector<Row> FlatRows() {
  return {
      {"G8a", "one SetSel / the same with 4 000 files", GoalKind::kRatio, kFlatGoal, SetMark},
      {"G8b", "one IsSel / the same with 4 000 files", GoalKind::kRatio, kFlatGoal, TestMark},
      {"G8c", "one IsExist / the same with 4 000 files", GoalKind::kRatio, kFlatGoal, Existence},
      {"G8d", "one GetFileListIndex / the same with 4 000 files", GoalKind::kRatio, kFlatGoal,
       IndexOfPath},
      {"G8e", "one GetAt, path alone / the same with 4 000 files", GoalKind::kRatio, kFlatGoal,
       FileAtIndex},
      {"G8f", "one SetCur / the same with 4 000 files", GoalKind::kRatio, kFlatGoal, CursorByPath},
      {"G8g", "one step to the next selected file / with 4 000 files", GoalKind::kRatio, kFlatGoal,
       SelectedWalk},
  };
}

}  // namespace flm::bench

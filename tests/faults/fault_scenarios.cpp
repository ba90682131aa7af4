// What a camera does with a card, one operation or a short sequence each.
#include <cstring>

#include "platform/preference.h"
#include "tests/faults/fault_parts.h"

namespace flm_faults {
namespace {

constexpr int kPageSize = 5;

// --- Steps ---------------------------------------------------------------------------------------
void Nothing(World& /*world*/) {}

void ScanIt(World& world) { world.Scan(); }

void ListUp(World& world) { world.record.Result(world.list.Listup(0)); }

void SweepByIndex(World& world) {
  const int count = world.list.GetCount();
  for (int i = 0; i < count; ++i) {
    CQFileListItem item;
    world.record.Result(world.list.GetAt(i, &item, true));
    world.record.Item(item);
  }
}

void ScanNewestFolder(World& world) { world.Scan(1); }

// Reads the other folders as it comes to them.
void WalkForward(World& world) {
  constexpr int kMoreThanThereAre = 100;
  for (int i = 0; i < kMoreThanThereAre; ++i) {
    CQFileListItem item;
    const int step = i == 0 ? world.list.GetFirst(&item, true) : world.list.GetNext(&item, true);
    world.record.Result(step);
    world.record.Item(item);
    if (step < 0) return;
  }
}

// Whether a name was handed out.
bool TakeName(World& world, int kind, NewName* name) {
  const int result = world.list.GetNewFileName(name->text, kind);
  world.record.Result(result);
  world.record.Text(name->text, sizeof(name->text));
  if (!name->IsWhole()) world.record.Broken();
  return result == 0;
}

void NameNext(World& world) {
  for (const int kind : {0, 2, 5}) {
    NewName name;
    TakeName(world, kind, &name);
  }
}

void Import(World& world) {
  for (int i = 0; i < 3; ++i) {
    NewName name;
    if (TakeName(world, 0, &name)) {
      const Gate::Pause pause;
      const std::string path = world.Below(name.text);
      const std::string folder = path.substr(0, path.rfind('/'));
      if (world.card.Look().count(folder + "/") != 0) world.card.Write(path, "imported");
    }
    CQFileListItem item;
    std::memcpy(item.filePath, name.text, sizeof(item.filePath));
    world.record.Result(world.list.GetFileInfo(&item));
    world.record.Item(item);
  }
}

template <const char* path>
void Choose(World& world) {
  world.Scan();
  world.item = world.ItemOf(path);
}

template <bool force>
void DeleteIt(World& world) {
  world.record.Result(world.list.Delete(&world.item, force, true));
  world.record.Item(world.item);
}

template <bool force>
void DeleteEveryFile(World& world) {
  world.record.Result(world.list.DeleteAll(force, nullptr));
}

template <bool force>
void DeleteSelected(World& world) {
  world.record.Result(world.list.DeleteSel(force, nullptr));
}

void ProtectIt(World& world) { world.record.Result(world.list.SetProtect(&world.item, true)); }

void ProtectEveryFile(World& world) {
  world.record.Result(world.list.SetProtectAll(true, nullptr));
}

void ToggleProtection(World& world) { world.record.Result(world.list.SetProtectSel(nullptr)); }

void SelectSome(World& world) {
  world.Scan();
  for (const char* const path : {kChosen, kProtected, kLonely, "DCIM/CAMERA/zoo.mp4",
                                 "DCIM/103PHOTO/QVX_0007.JPG", "DCIM/101OTHER/ABCD0001.JPG"}) {
    CQFileListItem item = world.ItemOf(path);
    world.list.SetSel(&item, true);
  }
}

void OrderPrints(World& world) {
  world.Scan();
  CQFileListItem item;
  for (int i = 0; i < world.list.GetCount(); ++i) {
    world.list.DCF_GetAt(i, &item);
    world.list.SetDPOF(&item, i % 3);
  }
  world.list.SetDPOFIndex(true);
}

void SaveOrder(World& world) {
  char creator[] = "camera";
  world.record.Result(world.list.SaveDPOFInfo(nullptr, creator));
}

void ScanAndForgetOrder(World& world) {
  world.Scan();
  world.list.SetDPOFAll(0);
}

void LoadOrder(World& world) { world.record.Result(world.list.LoadDPOFInfo(nullptr)); }

void StoreNumbers(World& world) {
  world.Scan();
  pref_set_long(kOtherCategory, kOtherKey, kOtherValue);
  pref_set_long(kSeriesCategory, kSeriesKey, 10300009);
}

void NumberInSeries(World& world) {
  world.record.Result(world.list.SetSeriesMode(true));
  NewName name;
  TakeName(world, 0, &name);
  world.record.Result(world.list.SetLastIndex(104, 77, true));
  world.record.Result(world.list.UpdateLastIndex(false));
}

void TakePage(World& world, int filled, const CQFileListItem* items) {
  world.record.Result(filled);
  for (int i = 0; i < kPageSize; ++i) world.record.Item(items[i]);
}

void TurnPages(World& world) {
  CQFileListItem items[kPageSize];
  world.record.Result(world.list.InitPage(kPageSize));
  TakePage(world, world.list.GetFirstPage(items), items);
  for (int i = 0; i < 4; ++i) TakePage(world, world.list.GetNextPage(items), items);
  TakePage(world, world.list.GetLastPage(items), items);
  TakePage(world, world.list.GetPrevPage(items), items);
  TakePage(world, world.list.GetPageAt(1, items), items);
}

}  // namespace

const std::vector<Scenario>& Scenarios() {
  constexpr unsigned int kScanned = kUnreadFolder | kLoneCompanion;
  constexpr unsigned int kNamed = kReservedName | kNameWithoutRecord;
  constexpr unsigned int kDeleted = kLeftCompanion | kBelievedGone;
  static const std::vector<Scenario> scenarios = {
      {"Scan", LargeCard, Nothing, ListUp, JudgeScan, Never, IsTreeFolder, kScanned},
      {"ScanOfAnEmptyCard", EmptyCard, Nothing, ListUp, JudgeScan, Never, IsTreeFolder, kScanned},
      {"SecondScan", MixedCard, ScanIt, ListUp, JudgeScan, Never, IsTreeFolder, kScanned},
      {"SweepByIndex", LargeCard, ScanIt, SweepByIndex, JudgeSame, Never, Never, kNoExcuse},
      {"WalkThatReadsFolders", MixedCard, ScanNewestFolder, WalkForward, JudgeWalk, Never, Never,
       kReadInPart | kLoneCompanion},
      {"NextNameWithANewFolder", FullFolderCard, ScanIt, NameNext, JudgeNames, Never, IsNew,
       kNamed},
      {"Import", FullFolderCard, ScanIt, Import, JudgeImport, Never, IsNew, kNamed},
      {"DeletionWithCompanions", MixedCard, Choose<kChosen>, DeleteIt<false>, JudgeDeletion,
       IsOfItem, IsPrintOrder, kDeleted},
      {"DeletionOfAProtectedFile", MixedCard, Choose<kProtected>, DeleteIt<true>, JudgeDeletion,
       IsOfItem, IsOrderOrInTree, kDeleted},
      {"RefusedDeletion", MixedCard, Choose<kProtected>, DeleteIt<false>, JudgeRefusedDeletion,
       Never, IsPrintOrder, kDeleted},
      {"DeletionOfTheLastOfAFolder", MixedCard, Choose<kLonely>, DeleteIt<false>, JudgeDeletion,
       IsOfItem, IsPrintOrder, kDeleted},
      {"DeleteAll", MixedCard, ScanIt, DeleteEveryFile<false>, JudgeDeleteAll, IsDeletable,
       IsPrintOrder, kDeleted},
      {"DeleteAllByForce", MixedCard, ScanIt, DeleteEveryFile<true>, JudgeDeleteAll, IsInTree,
       IsOrderOrInTree, kDeleted},
      {"DeleteSelected", MixedCard, SelectSome, DeleteSelected<false>, JudgeDeleteSelected,
       IsSelectedUnprotected, IsPrintOrder, kDeleted},
      {"DeleteSelectedByForce", MixedCard, SelectSome, DeleteSelected<true>, JudgeDeleteSelected,
       IsSelectedOrFolder, IsOrderOrInTree, kDeleted},
      {"ProtectOne", MixedCard, Choose<kChosen>, ProtectIt, JudgeProtection, Never, IsOfItem,
       kNoExcuse},
      {"ProtectAll", LargeCard, ScanIt, ProtectEveryFile, JudgeProtectAll, Never, IsInTree,
       kNoExcuse},
      {"ToggleProtectionOfSelected", MixedCard, SelectSome, ToggleProtection, JudgeToggle, Never,
       IsInTree, kNoExcuse},
      {"SavePrintOrder", LargeCard, OrderPrints, SaveOrder, JudgeSave, Never, IsPrintOrder,
       kNoExcuse},
      {"LoadPrintOrder", MixedCard, ScanAndForgetOrder, LoadOrder, JudgeLoad, Never, Never,
       kNoExcuse},
      {"SeriesNumbering", MixedCard, StoreNumbers, NumberInSeries, JudgeSeries, Never, IsNew,
       kNamed},
      {"Pages", LargeCard, ScanIt, TurnPages, JudgeSame, Never, Never, kNoExcuse},
  };
  return scenarios;
}

}  // namespace flm_faults

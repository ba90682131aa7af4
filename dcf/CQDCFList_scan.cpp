// Reading the tree: which folders belong to it, their order, and which of them are read at once.
#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include "base/bounded_text.h"
#include "dcf/CQDCFList.h"
#include "dcf/dcf_name.h"
#include "dcf/dcf_path.h"
#include "fsio/PCQDCFFSIO.h"

namespace {

constexpr int kNoReader = -1;
constexpr int kNoTree = -2;
constexpr int kStopAtFirst = 1;

bool EndsInPhoto(const CQDCFDir* dir) {
  return std::strcmp(flm::SuffixOfDirName(dir->GetDirName()), flm::kStillSuffix) == 0;
}

// Only numbers and names: the folders are sorted before any of them is read.
struct FolderName {
  char name[flm::kDirNameSize];
  int number;
};

FolderName NameOf(const CQDCFDir& dir) {
  FolderName held;
  flm::CopyText(held.name, flm::kDirNameSize, dir.GetDirName());
  held.number = dir.GetDnum();
  return held;
}

void Rename(CQDCFDir& dir, const FolderName& held) {
  dir.SetDirName(held.name);
  dir.SetDnum(static_cast<short>(held.number));
}

void ExchangeFolders(CQDCFDir& a, CQDCFDir& b) {
  const FolderName held = NameOf(a);
  Rename(a, NameOf(b));
  Rename(b, held);
}

bool IsDotEntry(const char* name) {
  return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

}  // namespace

void CQDCFList::MakeUpperCase(char* text) {
  if (text != nullptr) flm::UpperCase(text);
}

int CQDCFList::CheckDirNameSyntax(char* name) {
  if (name == nullptr) return -1;
  flm::UpperCase(name);
  return flm::CheckDirName(name);
}

int CQDCFList::GetDnum(const char* name) {
  return name == nullptr ? -1 : flm::DirNumberInName(name);
}

int CQDCFList::CompareDirName(const CQDCFDir* a, const CQDCFDir* b) {
  if (a == nullptr || b == nullptr) return 0;
  if (a->GetDnum() != b->GetDnum()) return a->GetDnum() > b->GetDnum() ? 1 : -1;
  // The "PHOTO" folder is the one that new pictures go into, so it stands last of its number.
  if (EndsInPhoto(a)) return 1;
  if (EndsInPhoto(b)) return -1;
  return std::strcmp(a->GetDirName(), b->GetDirName());
}

int CQDCFList::SortDirList() {
  const int used = UsedSlots();
  if (!SortByTable(used)) {
    for (int i = 0; i < used; ++i) {
      for (int j = i + 1; j < used; ++j) {
        if (CompareDirName(&dirTable_[i], &dirTable_[j]) > 0)
          ExchangeFolders(dirTable_[i], dirTable_[j]);
      }
    }
  }
  TableChanged();
  return 0;
}

// Sorts by a table of places, which finds what the exchanges find unless two folders of one number
// have one name or end in "PHOTO" both. False, and nothing is moved, in that case.
bool CQDCFList::SortByTable(int used) {
  uint16_t sources[flm::kMaxFolders];
  for (int i = 0; i < used; ++i) sources[i] = static_cast<uint16_t>(i);
  std::sort(sources, sources + used, [this](uint16_t a, uint16_t b) {
    const CQDCFDir& left = dirTable_[a];
    const CQDCFDir& right = dirTable_[b];
    if (left.GetDnum() != right.GetDnum()) return left.GetDnum() < right.GetDnum();
    const bool photo = EndsInPhoto(&left);
    if (photo != EndsInPhoto(&right)) return !photo;
    return std::strcmp(left.GetDirName(), right.GetDirName()) < 0;
  });
  for (int i = 1; i < used; ++i) {
    const CQDCFDir& before = dirTable_[sources[i - 1]];
    const CQDCFDir& dir = dirTable_[sources[i]];
    if (before.GetDnum() != dir.GetDnum()) continue;
    const bool photos = EndsInPhoto(&before) && EndsInPhoto(&dir);
    if (photos || std::strcmp(before.GetDirName(), dir.GetDirName()) == 0) return false;
  }
  for (int start = 0; start < used; ++start) {
    if (sources[start] == start) continue;
    const FolderName first = NameOf(dirTable_[start]);
    int at = start;
    for (int source = sources[at]; source != start; source = sources[at]) {
      Rename(dirTable_[at], NameOf(dirTable_[source]));
      sources[at] = static_cast<uint16_t>(at);
      at = source;
    }
    Rename(dirTable_[at], first);
    sources[at] = static_cast<uint16_t>(at);
  }
  return true;
}

int CQDCFList::Listup(int stopAtFirst, bool withCamera) {
  if (dirTable_ == nullptr || !HasRoot()) return -1;
  CreateMemManager();
  if (!memManager_.HasPool()) {
    FreeAllDir();
    return -1;
  }
  CreateBaseDirectory();
  if (itemCount_ > 0) FreeAllDir();
  char tree[flm::kFolderPathSize];
  flm::BoundedText path(tree, sizeof(tree));
  flm::AppendRootFolder(path, baseURI_, flm::ScannedTree(mode_));
  FreeAllDir();
  std::unique_ptr<PCQDCFFSIO> reader(new (std::nothrow) PCQDCFFSIO(tree, ""));
  if (reader == nullptr) return kNoReader;
  if (!reader->IsValid()) return kNoTree;
  TakeFolders(*reader, withCamera);
  SortDirList();
  ListFolders(stopAtFirst);
  lastIndex_ = GetLastIndex();
  UpdateLastIndexWithSeriesValue();
  return 0;
}

// Gives every accepted folder a slot, until the table is full; a name that no slot can hold is
// passed over.
void CQDCFList::TakeFolders(PCQDCFFSIO& reader, bool withCamera) {
  PCQDCFFSIO::PTFile entry = {};
  while (IsSlot(dirCount_) && reader.Read(&entry) >= 0) {
    if (IsDotEntry(entry.name) || CheckDirNameSyntax(entry.name) < 0) continue;
    const int number = flm::DirNumberInName(entry.name);
    if (number < flm::kCameraNumber || number > flm::kLastDirNumber) continue;
    if (number == flm::kCameraNumber && !withCamera) continue;
    CQDCFDir& dir = dirTable_[dirCount_];
    if (dir.SetDirName(entry.name) < 0) continue;
    dir.SetMemMgr(&memManager_);
    dir.SetDnum(static_cast<short>(number));
    ++dirCount_;
  }
  TableChanged();
}

// Newest folder first, so that the newest files are there when the card holds too many.
void CQDCFList::ListFolders(int stopAtFirst) {
  for (int slot = UsedSlots() - 1; slot >= 0; --slot) {
    if (dirTable_[slot].GetDnum() < 0 || ListSlot(slot) == 0) continue;
    if (stopAtFirst == kStopAtFirst ? itemCount_ > 0 : itemCount_ >= flm::kMaxFiles) return;
  }
}

int CQDCFList::SortItem() {
  const int used = UsedSlots();
  for (int slot = 0; slot < used; ++slot) dirTable_[slot].Sort();
  return 0;
}

// Reading the tree: which folders belong to it, their order, and which of them are read at once.
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
void ExchangeFolders(CQDCFDir& a, CQDCFDir& b) {
  char name[flm::kDirNameSize];
  flm::CopyText(name, sizeof(name), a.GetDirName());
  const int number = a.GetDnum();
  a.SetDirName(b.GetDirName());
  a.SetDnum(static_cast<short>(b.GetDnum()));
  b.SetDirName(name);
  b.SetDnum(static_cast<short>(number));
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
  for (int i = 0; i < used; ++i) {
    for (int j = i + 1; j < used; ++j) {
      if (CompareDirName(&dirTable_[i], &dirTable_[j]) > 0)
        ExchangeFolders(dirTable_[i], dirTable_[j]);
    }
  }
  return 0;
}

int CQDCFList::Listup(int stopAtFirst, bool withCamera) {
  if (dirTable_ == nullptr || !HasRoot()) return -1;
  CreateMemManager();
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

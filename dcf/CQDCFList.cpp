// Construction, properties and the directory table.
#include "dcf/CQDCFList.h"

#include <cstring>
#include <new>

#include "base/bounded_text.h"

namespace {

constexpr char kInternalMemory[] = "/int/nand";
constexpr short kFreeSlot = -1;
constexpr int kUnsetMode = 1;

}  // namespace

CQDCFList* CQDCFList::current_ = nullptr;

CQDCFList::CQDCFList()
    : dirCount_(0),
      dirTable_(nullptr),
      lastIndex_(0),
      baseURI_(),
      rootLength_(0),
      mode_(kUnsetMode),
      itemCount_(0),
      curDnum_(-1),
      curFnum_(-1),
      curItem_(nullptr),
      curDirIndex_(-1),
      seriesMode_(false),
      bitDnum_(-1),
      bitFnum_(-1),
      bitDirIndex_(0),
      bitItem_(nullptr),
      reading_(),
      folderText_() {
  current_ = this;
  TableChanged();
}

CQDCFList::~CQDCFList() {
  Destroy();
  current_ = nullptr;
}

void CQDCFList::Create() {
  if (dirTable_ == nullptr) {
    dirTable_ = new (std::nothrow) CQDCFDir[flm::kMaxFolders];
  }
  dirCount_ = 0;
  InitCursor();
  itemCount_ = 0;
  baseURI_[0] = '\0';
  rootLength_ = 0;
  seriesMode_ = false;
  TableChanged();
}

void CQDCFList::Destroy() {
  InitCursor();
  SetBitCurFile(-1, -1, -1, nullptr);
  delete[] dirTable_;
  dirTable_ = nullptr;
  memManager_.Destroy();
  TableChanged();
}

void CQDCFList::FreeMem() {
  for (int slot = 0; IsSlot(slot); ++slot) FreeSlot(slot);
}

int CQDCFList::CreateMemManager() {
  if (memManager_.HasPool()) return 0;
  const int isNand = std::strcmp(baseURI_, kInternalMemory) == 0 ? 1 : 0;
  return memManager_.Create(static_cast<int>(sizeof(DCFItem)), flm::kMaxFiles, isNand);
}

int CQDCFList::SetBaseURI(const char* uri) {
  if (uri == nullptr || std::strlen(uri) >= flm::kRootSize) return -1;
  flm::CopyText(baseURI_, flm::kRootSize, uri);
  rootLength_ = static_cast<int32_t>(std::strlen(baseURI_));
  TableChanged();
  return 0;
}

int CQDCFList::SetMode(int mode) {
  mode_ = mode;
  TableChanged();
  return 0;
}

int CQDCFList::SetSeriesMode(bool on) {
  seriesMode_ = on;
  return 0;
}

int CQDCFList::AddDir(int dirNumber) {
  if (!IsSlot(dirCount_)) return -1;
  dirTable_[dirCount_].SetDnum(static_cast<short>(dirNumber));
  TableChanged();
  return dirCount_++;
}

void CQDCFList::FreeAllDir() {
  for (int slot = 0; IsSlot(slot); ++slot) {
    dirTable_[slot].SetDnum(kFreeSlot);
    FreeSlot(slot);
  }
  itemCount_ = 0;
  dirCount_ = 0;
  TableChanged();
}

int CQDCFList::FreeAllDirExcept(CQDCFDir* keep) {
  if (keep == nullptr) return -1;
  for (int slot = 0; IsSlot(slot); ++slot) {
    CQDCFDir& dir = dirTable_[slot];
    if (dir.GetDnum() < 0 || dir.GetDnum() == keep->GetDnum()) continue;
    FreeSlot(slot);
    dir.SetListup(false);
  }
  itemCount_ = keep->GetCount();
  return itemCount_;
}

// Slots that lookups go through: a new folder may count twice, so the count can pass the table.
int CQDCFList::UsedSlots() const {
  if (dirTable_ == nullptr) return 0;
  return dirCount_ < flm::kMaxFolders ? dirCount_ : flm::kMaxFolders;
}

// What is known about the table by name, number or position, or about the path read last, may be
// wrong now.
void CQDCFList::TableChanged() {
  folders_.Forget();
  reading_.length = -1;
  folderText_.slot = -1;
}

// Only with a table.
const flm::FolderIndex& CQDCFList::Folders() const {
  if (!folders_.IsCurrent()) folders_.Take(dirTable_, UsedSlots());
  return folders_;
}

int CQDCFList::FirstSlotOf(int dirNumber) const {
  return dirTable_ == nullptr ? -1 : SlotFrom(dirNumber, Folders().FirstOfNumber(dirNumber));
}

int CQDCFList::NextSlotOf(int dirNumber, int slot) const {
  return SlotFrom(dirNumber, Folders().NextOfNumber(slot));
}

int CQDCFList::SlotFrom(int dirNumber, int slot) const {
  while (slot >= 0 && dirTable_[slot].GetDnum() != dirNumber) slot = Folders().NextOfNumber(slot);
  return slot;
}

void CQDCFList::FreeSlot(int slot) {
  LeaveSlot(slot);
  dirTable_[slot].FreeMem();
  CountSlot(slot);
}

// Reads a directory; the number of files added, 0 also when memory was short.
int CQDCFList::ListSlot(int slot) {
  if (!HasRoot()) return 0;
  LeaveSlot(slot);
  CQDCFDir& dir = dirTable_[slot];
  const int added = dir.Listup(baseURI_, mode_, dir.GetDnum(), itemCount_);
  CountSlot(slot);
  if (added <= 0) return 0;
  itemCount_ += added;
  return added;
}

// No walk may answer with a file that is gone: a cursor on it becomes unset.
void CQDCFList::LeaveItem(const DCFItem* item) {
  if (item == nullptr) return;
  if (curItem_ == item) InitCursor();
  if (bitItem_ == item) SetBitCurFile(-1, -1, -1, nullptr);
}

void CQDCFList::LeaveSlot(int slot) {
  if (curDirIndex_ == slot) InitCursor();
  if (bitDirIndex_ == slot && bitItem_ != nullptr) SetBitCurFile(-1, -1, -1, nullptr);
}

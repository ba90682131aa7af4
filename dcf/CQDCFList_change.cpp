// Folders made on the card; files entered into the catalogue and taken out of it.
#include <cstring>

#include "base/bounded_text.h"
#include "dcf/CQDCFList.h"
#include "dcf/dcf_name.h"
#include "dcf/dcf_path.h"
#include "dcf/item_layout.h"
#include "fsio/PCQDCFFSIO.h"

namespace {

constexpr size_t kMaxAddedPath = 98;
constexpr size_t kRawDataSize = 4;
constexpr int kNoSlash = -3;
constexpr int kNameTooLong = -2;
constexpr int kFileNotHeld = -2;

}  // namespace

int CQDCFList::MakeDirectory(const char* path) { return PCQDCFFSIO::MakeDirectory(path); }

// The tree's folder on an empty card, else its first directory, else the folder of the print order:
// at most one new folder a call.
int CQDCFList::CreateBaseDirectory() {
  if (!HasRoot()) return 0;
  char path[flm::kFolderPathSize];
  const char* const tree = flm::MadeTree(mode_);
  flm::BoundedText treePath(path, sizeof(path));
  flm::AppendRootFolder(treePath, baseURI_, tree);
  if (MakeDirectory(path) == 0) return 0;
  if (mode_ == flm::kModeStillPlain || mode_ == flm::kModeMovie) {
    flm::BoundedText first(path, sizeof(path));
    flm::AppendNumberedFolder(first, baseURI_, tree, flm::kFirstDirNumber,
                              mode_ == flm::kModeMovie ? flm::kMovieSuffix : flm::kStillSuffix);
  }
  if (MakeDirectory(path) == 0) return 0;
  flm::BoundedText misc(path, sizeof(path));
  flm::AppendRootFolder(misc, baseURI_, flm::kMiscFolder);
  MakeDirectory(path);
  return 0;
}

int CQDCFList::CreateNewDirectory(int dirNumber, const char* dirSuffix) {
  if (dirSuffix == nullptr || !HasRoot()) return -1;
  char path[flm::kPathSize];
  flm::BoundedText folder(path, sizeof(path));
  flm::AppendNumberedFolder(folder, baseURI_, flm::ScannedTree(mode_), dirNumber, dirSuffix);
  return MakeDirectory(path);
}

int CQDCFList::AddFile(const char* path) {
  if (path == nullptr) return -1;
  const char* const slash = std::strrchr(path, '/');
  if (slash == nullptr) return kNoSlash;
  if (std::strlen(path) > kMaxAddedPath) return -1;
  if (std::strlen(slash) > kMaxAddedPath) return kNameTooLong;
  const PathNumbers reading = ReadPath(path);
  if (reading.slot < 0) return -1;
  CQDCFDir& dir = dirTable_[reading.slot];
  dir.SetMemMgr(&memManager_);
  dir.GetMem();
  DCFItem* const item = dir.AddItem();
  if (item == nullptr) return -1;
  dir.SetFileName(item, slash + 1);
  dir.SetFnum(item, reading.fileNumber);
  CountSlot(reading.slot);
  ++itemCount_;
  return 0;
}

int CQDCFList::RemoveFile(const char* path) {
  const Place place = LookUpExactly(path);
  if (place.slot < 0) return -1;
  if (place.item == nullptr) return kFileNotHeld;
  LeaveItem(place.item);
  const int result = dirTable_[place.slot].RemoveItem(place.item);
  CountSlot(place.slot);
  --itemCount_;
  return result;
}

int CQDCFList::AddItem(int dirNumber, const unsigned char* data) {
  if (dirNumber < flm::kFirstDirNumber || data == nullptr) return -1;
  const int slot = dirNumber - flm::kFirstDirNumber;
  if (!IsSlot(slot)) return -1;
  CQDCFDir& dir = dirTable_[slot];
  dir.SetMemMgr(&memManager_);
  dir.GetMem();
  if (dir.GetDnum() != dirNumber) TableChanged();
  dir.SetDnum(static_cast<short>(dirNumber));
  DCFItem* const item = dir.AddItem();
  if (item == nullptr) return -1;
  std::memcpy(static_cast<void*>(item), data, kRawDataSize);
  CountSlot(slot);
  ++itemCount_;
  return 0;
}

int CQDCFList::SetObject(const char* path, int type, bool on) {
  DCFItem* const item = FindItem(path);
  if (item == nullptr) return -1;
  switch (type) {
    case flm::kKindSrw:
      item->companionSrw = on ? 'S' : ' ';
      break;
    case flm::kKindWav:
      item->companionWav = on ? 'W' : ' ';
      break;
    case flm::kKindMpo:
      item->companionMpo = on ? 'M' : ' ';
      break;
    default:
      break;
  }
  return 0;
}

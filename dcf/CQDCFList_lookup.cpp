// From paths to files and positions, and the information about one file.
#include <cstring>

#include "base/bounded_text.h"
#include "base/file_list_item.h"
#include "base/wrapping.h"
#include "dcf/CQDCFList.h"
#include "dcf/dcf_name.h"
#include "dcf/dcf_path.h"
#include "dcf/item_layout.h"
#include "fsio/PCQDCFFSIO.h"

namespace {

constexpr int kShortestPath = 24;  // below it no path names a folder of the tree
constexpr int kFirstSlotNumber = 100;
constexpr int kNumbersPerFolder = 100;

constexpr int kNoDirNumber = -100;
constexpr int kNoFileNumber = -101;
constexpr int kDirNotFound = -200;
constexpr int kFileNotFound = -300;

constexpr int kKeyFreeSlot = -3;
constexpr int kKeyNoItems = -2;
constexpr int kKeyNoSlot = -4;

constexpr int kOtherType = -2;
constexpr int kNoType = -1;

bool ExtensionIs(const DCFItem* item, const char* extension) {
  for (int i = 0; i < flm::kExtensionSize; ++i) {
    if (flm::UpperCaseOf(item->extChars[i]) != extension[i]) return false;
  }
  return true;
}

}  // namespace

void CQDCFList::GetNum(const char* path, int* dirNumber, short* fileNumber) {
  if (path == nullptr || dirNumber == nullptr || fileNumber == nullptr) return;
  int file = -1;
  *dirNumber = -1;
  flm::NumbersInPath(path, rootLength_, flm::IsStillMode(mode_), dirNumber, &file);
  *fileNumber = static_cast<short>(file);
}

void CQDCFList::GetNum(const DCFItem* item, int* /*ignored*/, short* dirNumber) {
  if (item != nullptr && dirNumber != nullptr) *dirNumber = item->dirNumber;
}

int CQDCFList::GetDidx(int /*dirNumber*/, const char* path) { return SlotNamedIn(path); }

int CQDCFList::SlotNamedIn(const char* path) const {
  if (flm::BoundedLength(path, kShortestPath) < kShortestPath) return -1;
  const char* const name = flm::DirNameInPath(path);
  if (name == nullptr || dirTable_ == nullptr) return -1;
  // A whole name that is equal begins equally, so the weak comparison decides alone.
  return Folders().FirstNamed(dirTable_, name);
}

int CQDCFList::GetDidx(int dirNumber, int fileNumber) { return SlotHolding(dirNumber, fileNumber); }

int CQDCFList::GetDnum(int slotIndex) { return flm::WrappingSum(slotIndex, kFirstSlotNumber); }

int CQDCFList::GetFnum(int slotIndex, int n) {
  return flm::WrappingSum(n, GetDnum(slotIndex) % kNumbersPerFolder * kNumbersPerFolder);
}

int CQDCFList::GetFidx(int n) {
  return n >= 1 && n < kNumbersPerFolder ? n : n % kNumbersPerFolder;
}

int CQDCFList::GetIndexToNum(int key, int* dirNumber, int* fileNumber) {
  if (dirNumber == nullptr || fileNumber == nullptr) return -1;
  *dirNumber = key / flm::kFileIndexBase;
  *fileNumber = key % flm::kFileIndexBase;
  return 0;
}

int CQDCFList::GetNumToIndex(int dirNumber, int fileNumber) {
  return flm::WrappingSum(flm::WrappingProduct(dirNumber, flm::kFileIndexBase), fileNumber);
}

int CQDCFList::GetURIToKey(const char* path) {
  int dirNumber = -1;
  short fileNumber = -1;
  GetNum(path, &dirNumber, &fileNumber);
  return GetNumToIndex(dirNumber, fileNumber);
}

int CQDCFList::GetKeyToURI(int key, char* out, int outSize) {
  const int slot = GetDidx(key / flm::kFileIndexBase, out);
  if (slot < 0) return kKeyNoSlot;
  const CQDCFDir& dir = dirTable_[slot];
  if (dir.IsEmpty() != 0) return kKeyNoItems;
  if (dir.GetDnum() < 0) return kKeyFreeSlot;
  // The slot goes where the file number goes and the key's file number where the slot goes: callers
  // of this conversion were written against these paths.
  BuildPath({out, outSize}, dir.GetDnum(), slot, key % flm::kFileIndexBase, curItem_);
  return 0;
}

CQDCFList::PathNumbers CQDCFList::ReadPath(const char* path) {
  const int length = flm::BoundedLength(path, flm::kPathSize);
  if (path == nullptr) return {0, -1, -1, false, -1};
  if (length >= flm::kPathSize) {
    return ReadNewPath(path, static_cast<int>(std::strlen(path)), -1);
  }
  if (length == reading_.length &&
      std::memcmp(path, reading_.text, static_cast<size_t>(length)) == 0) {
    return reading_.numbers;
  }
  const void* const slash = memrchr(path, '/', static_cast<size_t>(length));
  const int folderLength =
      slash == nullptr ? -1 : static_cast<int>(static_cast<const char*>(slash) - path);
  reading_.numbers = ReadNewPath(path, length, folderLength);
  std::memcpy(reading_.text, path, static_cast<size_t>(length));
  reading_.length = length;
  reading_.folderLength = folderLength;
  return reading_.numbers;
}

// In the folder of the path that was read before, the slot is known. Not so below a folder of a
// short name, which is looked up with the start of the file's name behind it.
CQDCFList::PathNumbers CQDCFList::ReadNewPath(const char* path, int length,
                                              int folderLength) const {
  PathNumbers numbers = {length, -1, -1, false, -1};
  const bool beside =
      length >= kShortestPath && reading_.length >= kShortestPath &&
      folderLength >= flm::kWeakDirName && folderLength == reading_.folderLength &&
      std::memchr(path + folderLength - flm::kWeakDirName, '/', flm::kWeakDirName) == nullptr &&
      std::memcmp(path, reading_.text, static_cast<size_t>(folderLength)) == 0;
  const bool knownFolder = beside && !reading_.numbers.free;
  numbers.free = flm::HasCameraWord(knownFolder ? path + folderLength : path);
  numbers.slot = beside ? reading_.numbers.slot : SlotNamedIn(path);
  int file = -1;
  flm::NumbersInPath(path, numbers.free, rootLength_, flm::IsStillMode(mode_), &numbers.dirNumber,
                     &file);
  numbers.fileNumber = static_cast<short>(file);
  return numbers;
}

CQDCFList::Place CQDCFList::LookUp(const PathNumbers& numbers, const char* path) const {
  if (numbers.slot < 0) return {-1, nullptr};
  return {numbers.slot, dirTable_[numbers.slot].GetItem(numbers.fileNumber, path)};
}

// Stricter than LookUp: the whole extension counts, since taking away a multi-picture companion
// must not drop the record of a movie of the same number.
CQDCFList::Place CQDCFList::LookUpExactly(const char* path) {
  Place place = LookUp(path);
  if (place.item == nullptr || dirTable_[place.slot].GetDnum() == flm::kCameraNumber) return place;
  const char* const prefix = flm::PrefixInPath(path);
  const char* const extension = flm::ExtensionInPath(path);
  const int fileNumber = place.item->fileNumber;
  for (DCFItem* item = place.item; item != nullptr; item = item->next) {
    if (item->fileNumber == fileNumber &&
        std::memcmp(item->prefixChars, prefix, flm::kPrefixSize) == 0 &&
        std::memcmp(item->extChars, extension, flm::kExtensionSize) == 0) {
      return {place.slot, item};
    }
  }
  return {place.slot, nullptr};
}

int CQDCFList::SetCurFile(const char* path) {
  if (path == nullptr) return InitCursor();
  const PathNumbers numbers = ReadPath(path);
  return MoveCursorTo(numbers, LookUp(numbers, path));
}

// The end of SetCurFile: the file of the path was looked up.
int CQDCFList::MoveCursorTo(const PathNumbers& numbers, const Place& place) {
  if (numbers.dirNumber < 0) return kNoDirNumber;
  if (numbers.fileNumber < 0) return kNoFileNumber;
  if (place.slot < 0) return kDirNotFound;
  if (place.item == nullptr) return kFileNotFound;
  MoveCursor(place, dirTable_[place.slot].GetDnum());
  return 0;
}

int CQDCFList::GetListIndex(const char* path) { return PositionIn(ReadPath(path), path); }

int CQDCFList::PositionIn(const PathNumbers& numbers, const char* path) const {
  if (numbers.slot < 0 || dirTable_[numbers.slot].IsEmpty() != 0) return -1;
  const int inDirectory =
      dirTable_[numbers.slot].PositionIn(numbers.fileNumber, path, numbers.free);
  return inDirectory < 0 ? -1 : Folders().Before(numbers.slot) + inDirectory;
}

int CQDCFList::Visit(const char* path, flm::FileMarks* marks) {
  const PathNumbers numbers = ReadPath(path);
  if (numbers.slot < 0 || numbers.free || !HasList(numbers.slot)) {
    const int position = PositionIn(numbers, path);
    if (marks != nullptr) *marks = MarksOf(Answering(numbers, path));
    SetCurFile(path);
    return position;
  }
  const CQDCFDir::Located found =
      dirTable_[numbers.slot].Locate(numbers.fileNumber, path, numbers.length);
  const Place place = {numbers.slot, found.item};
  if (marks != nullptr) *marks = MarksOf(CursorAnswers(numbers) ? Place{0, curItem_} : place);
  MoveCursorTo(numbers, place);
  return found.position < 0 ? -1 : Folders().Before(numbers.slot) + found.position;
}

DCFItem* CQDCFList::FindItem(const char* path) {
  const char* const prefix = path == nullptr ? nullptr : flm::PrefixInPath(path);
  if (prefix == nullptr) return nullptr;
  char wanted[flm::kPrefixSize];
  for (int i = 0; i < flm::kPrefixSize; ++i) wanted[i] = flm::UpperCaseOf(prefix[i]);
  int dirNumber = -1;
  short fileNumber = -1;
  GetNum(path, &dirNumber, &fileNumber);
  if (dirNumber <= 0) return nullptr;
  for (int slot = FirstSlotOf(dirNumber); slot >= 0; slot = NextSlotOf(dirNumber, slot)) {
    DCFItem* const item = dirTable_[slot].FindItem(fileNumber, wanted);
    if (item != nullptr) return item;
  }
  return nullptr;
}

int CQDCFList::IsExist(const char* path) {
  const Place place = LookUp(path);
  return place.item == nullptr ? -1 : place.item->fileNumber;
}

int CQDCFList::IsProtect(const char* path) { return PCQDCFFSIO::IsProtect(path); }

int CQDCFList::GetFileType(const DCFItem* item) {
  if (item == nullptr) return kNoType;
  if (ExtensionIs(item, "JPG")) return flm::kKindJpg;
  if (ExtensionIs(item, "WAV")) return flm::kKindWav;
  if (ExtensionIs(item, "SRW")) return flm::kKindSrw;
  return ExtensionIs(item, "MPO") ? flm::kKindMpo : kOtherType;
}

int CQDCFList::GetDcfNum(const DCFItem* item) {
  return item == nullptr ? -1 : GetNumToIndex(item->dirNumber, item->fileNumber);
}

CQDCFList::Place CQDCFList::FindForInfo(const char* path, int dirNumber, int fileNumber) const {
  if (dirNumber <= 0) return BehindLast();
  for (int slot = FirstSlotOf(dirNumber); slot >= 0; slot = NextSlotOf(dirNumber, slot)) {
    DCFItem* const item = dirTable_[slot].FindForInfo(fileNumber, path);
    if (item != nullptr) return {slot, item};
  }
  return BehindLast();
}

int CQDCFList::GetInfo(const char* path, CQFileListItem* info) {
  if (path == nullptr || info == nullptr) return -1;
  int dirNumber = -1;
  short fileNumber = -1;
  GetNum(path, &dirNumber, &fileNumber);
  const Place place = FindForInfo(path, dirNumber, fileNumber);
  if (place.item == nullptr) return -1;
  CQDCFDir& dir = dirTable_[place.slot];
  DCFItem* const item = place.item;
  info->dpofCopies = static_cast<uint8_t>(dir.GetItemInfo(item, flm::kMarkInfoDpofCopies));
  info->dpofIndex = dir.GetItemInfo(item, flm::kMarkInfoDpofIndex) != 0 ? 1 : 0;
  info->dpofSize = dir.GetItemInfo(item, flm::kMarkInfoDpofSize);
  std::memset(info->objectPath, 0, flm::kFolderPathSize);
  if (dirNumber == flm::kCameraNumber) {
    flm::CopyText(info->objectPath, flm::kPathSize, path);
  } else {
    WriteObjectPath({info->objectPath, flm::kPathSize}, place);
  }
  info->isProtected = IsProtect(path) != 0 ? 1 : 0;
  info->selected = dir.GetItemBit(item, flm::kMarkBitSelected) ? 1 : 0;
  info->wifiFlag = dir.GetItemBit(item, flm::kMarkBitWifi) ? 1 : 0;
  if (std::strlen(path) >= flm::kPathSize) return -1;
  flm::CopyText(info->filePath, flm::kPathSize, path);
  return 0;
}

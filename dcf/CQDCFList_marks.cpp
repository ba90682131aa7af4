// Item bits and info bytes: set, read, counted, walked. What each bit and byte means is the file
// list's business; here they are numbers.
#include "dcf/CQDCFList.h"
#include "dcf/dcf_name.h"
#include "dcf/dcf_path.h"
#include "dcf/item_layout.h"

namespace {

constexpr int kDirNotHeld = flm::kInfoNoItem;
constexpr int kFileNotHeld = 0;
constexpr char kJpgLetter = 'J';

// The print bytes belong to pictures only. 0 for any other byte, else the refusal's code.
int RefusalForOtherThanJpg(int byte) {
  switch (byte) {
    case flm::kMarkInfoDpofCopies:
      return -200;
    case flm::kMarkInfoDpofIndex:
      return -201;
    case flm::kMarkInfoDpofSize:
      return -202;
    default:
      return 0;
  }
}

// The byte of a file that was looked up. The directory only lends the operation: any will do.
template <typename Place>
int InfoOf(CQDCFDir& dir, const Place& place, int byte) {
  if (place.slot < 0) return kDirNotHeld;
  return place.item == nullptr ? kFileNotHeld : dir.GetItemInfo(place.item, byte);
}

bool IsItemBit(int bit) { return bit >= 0 && bit < flm::kItemBitCount; }

}  // namespace

CQDCFList::Place CQDCFList::NextMarked(Place from, int bit) const {
  if (dirTable_ == nullptr || !IsItemBit(bit)) return BehindLast();
  const flm::ItemFlags flag = flm::FlagOfBit(bit);
  if (from.item != nullptr) {
    DCFItem* const marked = HasList(from.slot) ? dirTable_[from.slot].NextWith(from.item, flag)
                                               : flm::NextLinked(from.item->next, flag);
    if (marked != nullptr) return {from.slot, marked};
  }
  for (int slot = ClampSlot(from.slot) + 1; slot < Folders().End(); ++slot) {
    DCFItem* const marked = IsRead(slot) ? dirTable_[slot].NextWith(nullptr, flag) : nullptr;
    if (marked != nullptr) return {slot, marked};
  }
  return BehindLast();
}

CQDCFList::Place CQDCFList::PrevMarked(Place from, int bit) const {
  if (dirTable_ == nullptr || !IsItemBit(bit)) return BeforeFirst();
  const flm::ItemFlags flag = flm::FlagOfBit(bit);
  if (from.item != nullptr) {
    DCFItem* const marked = HasList(from.slot) ? dirTable_[from.slot].PreviousWith(from.item, flag)
                                               : flm::PreviousLinked(from.item->prev, flag);
    if (marked != nullptr) return {from.slot, marked};
  }
  for (int slot = SlotBefore(from.slot); slot >= 0; --slot) {
    DCFItem* const marked = IsRead(slot) ? dirTable_[slot].PreviousWith(nullptr, flag) : nullptr;
    if (marked != nullptr) return {slot, marked};
  }
  return BeforeFirst();
}

int CQDCFList::SetBitCurFile(int dirNumber, int fileNumber, int dirIndex, DCFItem* item) {
  bitDnum_ = dirNumber;
  bitFnum_ = fileNumber;
  bitDirIndex_ = dirIndex;
  bitItem_ = item;
  return 0;
}

// The common end of the four walks: a walk that finds nothing stays where it was.
int CQDCFList::FoundBit(Place place, char* out, int outSize) {
  if (place.item == nullptr) return -1;
  WritePath({out, outSize}, place);
  SetBitCurFile(NumberOf(place.slot), place.item->fileNumber, place.slot, place.item);
  return 0;
}

int CQDCFList::GetBitFirst(char* out, int outSize, int bit) {
  InitCursor();
  SetBitCurFile(-1, -1, -1, nullptr);
  return FoundBit(NextMarked(BeforeFirst(), bit), out, outSize);
}

int CQDCFList::GetBitNext(char* out, int outSize, int bit) {
  if (bitItem_ == nullptr) return -1;
  return FoundBit(NextMarked({bitDirIndex_, bitItem_}, bit), out, outSize);
}

int CQDCFList::GetBitPrev(char* out, int outSize, int bit, char* objOut) {
  if (bitItem_ == nullptr) return -1;
  const int left = bitDirIndex_;
  const Place place = PrevMarked({bitDirIndex_, bitItem_}, bit);
  // The object path names the directory that the walk comes from, also when it has just left it.
  if (place.item != nullptr) {
    BuildObjectPath({objOut, flm::kFolderPathSize}, place.item->fileNumber, left, place.item);
  }
  return FoundBit(place, out, outSize);
}

int CQDCFList::GetBitLast(char* out, int outSize, int bit) {
  curDnum_ = -1;
  curFnum_ = -1;
  return FoundBit(PrevMarked(BehindLast(), bit), out, outSize);
}

bool CQDCFList::CursorAnswers(const PathNumbers& numbers) const {
  return curDnum_ >= 0 && curItem_ != nullptr && numbers.dirNumber == curDnum_ &&
         numbers.fileNumber == curFnum_;
}

// The file whose marks are read for a path. Where the cursor's own numbers stand in the path it is
// the cursor's, without looking further. Slot -1: its directory is not held.
CQDCFList::Place CQDCFList::Answering(const PathNumbers& numbers, const char* path) const {
  return CursorAnswers(numbers) ? Place{0, curItem_} : LookUp(numbers, path);
}

int CQDCFList::SetCustomBit(const char* path, int bit, bool on) {
  const Place place = LookUp(path);
  if (place.item == nullptr) return -1;
  dirTable_[place.slot].SetItemBit(place.item, bit, on);
  return 0;
}

bool CQDCFList::GetCustomBit(const char* path, int bit) {
  if (dirTable_ == nullptr) return false;
  return dirTable_[0].GetItemBit(Answering(ReadPath(path), path).item, bit);
}

int CQDCFList::SetCustomBitAll(int bit, bool on) {
  for (Place at = Forward(BeforeFirst()); at.item != nullptr; at = Forward(at)) {
    dirTable_[at.slot].SetItemBit(at.item, bit, on);
  }
  return 0;
}

int CQDCFList::GetCustomBitCount(int bit) {
  if (dirTable_ == nullptr || !IsItemBit(bit)) return 0;
  int count = 0;
  for (int slot = 0; slot < Folders().End(); ++slot) {
    if (IsRead(slot)) count += dirTable_[slot].CountOfBit(bit);
  }
  return count;
}

int CQDCFList::SetCustomInfo(const char* path, int byte, unsigned char value) {
  const Place place = LookUp(path);
  if (place.item == nullptr) return -1;
  const int refusal = RefusalForOtherThanJpg(byte);
  if (refusal != 0 && flm::ExtensionInPath(path)[0] != kJpgLetter) return refusal;
  return dirTable_[place.slot].SetItemInfo(place.item, byte, value);
}

int CQDCFList::GetCustomInfo(const char* path, int byte) {
  if (dirTable_ == nullptr) return kDirNotHeld;
  return InfoOf(dirTable_[0], Answering(ReadPath(path), path), byte);
}

flm::FileMarks CQDCFList::GetMarks(const char* path) {
  return MarksOf(Answering(ReadPath(path), path));
}

flm::FileMarks CQDCFList::MarksOf(Place place) {
  if (dirTable_ == nullptr) return {false, false, kDirNotHeld, kDirNotHeld, kDirNotHeld};
  CQDCFDir& dir = dirTable_[0];
  return {dir.GetItemBit(place.item, flm::kMarkBitSelected),
          dir.GetItemBit(place.item, flm::kMarkBitWifi),
          InfoOf(dir, place, flm::kMarkInfoDpofCopies), InfoOf(dir, place, flm::kMarkInfoDpofSize),
          InfoOf(dir, place, flm::kMarkInfoDpofIndex)};
}

int CQDCFList::SetCustomInfoAll(int byte, unsigned char value) {
  const bool picturesOnly = RefusalForOtherThanJpg(byte) != 0;
  for (Place at = Forward(BeforeFirst()); at.item != nullptr; at = Forward(at)) {
    if (picturesOnly && GetFileType(at.item) != flm::kKindJpg) continue;
    dirTable_[at.slot].SetItemInfo(at.item, byte, value);
  }
  return 0;
}

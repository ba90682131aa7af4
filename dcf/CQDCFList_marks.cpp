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

}  // namespace

CQDCFList::Place CQDCFList::NextMarked(Place from, int bit) const {
  for (Place at = Forward(from); at.item != nullptr; at = Forward(at)) {
    if (dirTable_[at.slot].GetItemBit(at.item, bit)) return at;
  }
  return BehindLast();
}

CQDCFList::Place CQDCFList::PrevMarked(Place from, int bit) const {
  for (Place at = Backward(from); at.item != nullptr; at = Backward(at)) {
    if (dirTable_[at.slot].GetItemBit(at.item, bit)) return at;
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
  SetBitCurFile(dirTable_[place.slot].GetDnum(), place.item->fileNumber, place.slot, place.item);
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

// Whether the cursor's own numbers stand in the path; the mark reads then answer for its item
// without looking further.
bool CQDCFList::CursorAnswers(const char* path) {
  if (curDnum_ < 0 || curItem_ == nullptr) return false;
  int dirNumber = -1;
  short fileNumber = -1;
  GetNum(path, &dirNumber, &fileNumber);
  return dirNumber == curDnum_ && fileNumber == curFnum_;
}

int CQDCFList::SetCustomBit(const char* path, int bit, bool on) {
  const Place place = LookUp(path);
  if (place.item == nullptr) return -1;
  dirTable_[place.slot].SetItemBit(place.item, bit, on);
  return 0;
}

bool CQDCFList::GetCustomBit(const char* path, int bit) {
  if (dirTable_ == nullptr) return false;
  if (CursorAnswers(path)) return dirTable_[0].GetItemBit(curItem_, bit);
  const Place place = LookUp(path);
  return place.item != nullptr && dirTable_[place.slot].GetItemBit(place.item, bit);
}

int CQDCFList::SetCustomBitAll(int bit, bool on) {
  for (Place at = Forward(BeforeFirst()); at.item != nullptr; at = Forward(at)) {
    dirTable_[at.slot].SetItemBit(at.item, bit, on);
  }
  return 0;
}

int CQDCFList::GetCustomBitCount(int bit) {
  int count = 0;
  for (Place at = NextMarked(BeforeFirst(), bit); at.item != nullptr; at = NextMarked(at, bit))
    ++count;
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
  if (CursorAnswers(path)) return dirTable_[0].GetItemInfo(curItem_, byte);
  const Place place = LookUp(path);
  if (place.slot < 0) return kDirNotHeld;
  return place.item == nullptr ? kFileNotHeld : dirTable_[place.slot].GetItemInfo(place.item, byte);
}

int CQDCFList::SetCustomInfoAll(int byte, unsigned char value) {
  const bool picturesOnly = RefusalForOtherThanJpg(byte) != 0;
  for (Place at = Forward(BeforeFirst()); at.item != nullptr; at = Forward(at)) {
    if (picturesOnly && GetFileType(at.item) != flm::kKindJpg) continue;
    dirTable_[at.slot].SetItemInfo(at.item, byte, value);
  }
  return 0;
}

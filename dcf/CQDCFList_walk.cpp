// The walks over all files and the navigation cursor. The steppers at the top are the one place
// where "every item of every used directory" is written.
#include "dcf/CQDCFList.h"

namespace {

constexpr int kNoCursor = -2;

}  // namespace

// A caller may have put any slot into a cursor.
int CQDCFList::ClampSlot(int slot) {
  if (slot < -1) return -1;
  return slot > flm::kMaxFolders ? flm::kMaxFolders : slot;
}

// The last slot in front of one that a backward walk can find a file in.
int CQDCFList::SlotBefore(int slot) const {
  const int end = Folders().End();
  return (slot < end ? ClampSlot(slot) : end) - 1;
}

CQDCFList::Place CQDCFList::Forward(Place from) const {
  if (from.item != nullptr && from.item->next != nullptr) return {from.slot, from.item->next};
  if (dirTable_ == nullptr) return BehindLast();
  const int end = Folders().End();
  for (int slot = ClampSlot(from.slot) + 1; slot < end; ++slot) {
    DCFItem* const first = IsRead(slot) ? dirTable_[slot].GetFirstItem() : nullptr;
    if (first != nullptr) return {slot, first};
  }
  return BehindLast();
}

CQDCFList::Place CQDCFList::Backward(Place from) const {
  if (from.item != nullptr && from.item->prev != nullptr) return {from.slot, from.item->prev};
  if (dirTable_ == nullptr) return BeforeFirst();
  for (int slot = SlotBefore(from.slot); slot >= 0; --slot) {
    DCFItem* const last = IsRead(slot) ? dirTable_[slot].GetLastItem() : nullptr;
    if (last != nullptr) return {slot, last};
  }
  return BeforeFirst();
}

// The directory of a used slot, read now when it was not: memory holds one such directory at a
// time. Null for a free slot.
CQDCFDir* CQDCFList::ReachSlot(int slot) {
  CQDCFDir& dir = dirTable_[slot];
  if (dir.GetDnum() < 0) return nullptr;
  if (!dir.GetListup() && ListSlot(slot) > 0) FreeAllDirExcept(&dir);
  return &dir;
}

CQDCFList::Place CQDCFList::ForwardReading(Place from) {
  if (from.item != nullptr && from.item->next != nullptr) return {from.slot, from.item->next};
  if (dirTable_ == nullptr) return BehindLast();
  const int end = Folders().End();
  for (int slot = ClampSlot(from.slot) + 1; slot < end; ++slot) {
    CQDCFDir* const dir = ReachSlot(slot);
    DCFItem* const first = dir == nullptr ? nullptr : dir->GetFirstItem();
    if (first != nullptr) return {slot, first};
  }
  return BehindLast();
}

CQDCFList::Place CQDCFList::BackwardReading(Place from) {
  if (from.item != nullptr && from.item->prev != nullptr) return {from.slot, from.item->prev};
  if (dirTable_ == nullptr) return BeforeFirst();
  for (int slot = SlotBefore(from.slot); slot >= 0; --slot) {
    CQDCFDir* const dir = ReachSlot(slot);
    DCFItem* const last = dir == nullptr ? nullptr : dir->GetLastItem();
    if (last != nullptr) return {slot, last};
  }
  return BeforeFirst();
}

// The place of a position in the walk over what has been read.
CQDCFList::Place CQDCFList::PlaceAt(int position) const {
  if (position < 0 || dirTable_ == nullptr) return BehindLast();
  int rest = position;
  if (!Folders().HasHidden()) {
    const int slot = Folders().SlotAt(position, &rest);
    return slot < 0 ? BehindLast() : Place{slot, dirTable_[slot].GetItemAt(rest)};
  }
  for (int slot = 0; slot < Folders().End(); ++slot) {
    if (!IsRead(slot)) continue;
    const int held = dirTable_[slot].GetCount();
    if (rest < held) return {slot, dirTable_[slot].GetItemAt(rest)};
    rest -= held;
  }
  return BehindLast();
}

int CQDCFList::InitCursor() { return SetCurItem(-1, -1, -1, nullptr); }

int CQDCFList::SetCurItem(int dirNumber, int fileNumber, int dirIndex, DCFItem* item) {
  curDnum_ = dirNumber;
  curFnum_ = fileNumber;
  curDirIndex_ = dirIndex;
  curItem_ = item;
  return 0;
}

void CQDCFList::MoveCursor(Place place, int dirNumber) {
  SetCurItem(dirNumber, place.item->fileNumber, place.slot, place.item);
}

int CQDCFList::GetFirst(char* out, int outSize, char* objOut, int objSize, bool setCursor,
                        unsigned int* fileTime) {
  return TakeFirst({out, outSize}, {objOut, objSize}, setCursor, fileTime, nullptr);
}

int CQDCFList::StepFirst(char* out, int outSize, char* objOut, int objSize, unsigned int* fileTime,
                         flm::FileStatus* status) {
  return TakeFirst({out, outSize}, {objOut, objSize}, true, fileTime, status);
}

int CQDCFList::TakeFirst(PathOut out, PathOut objOut, bool setCursor, unsigned int* fileTime,
                         flm::FileStatus* status) {
  if (setCursor) InitCursor();
  const Place place = ForwardReading(BeforeFirst());
  if (place.item == nullptr) return -1;
  WritePath(out, place);
  WriteObjectPath(objOut, place);
  WriteTime(fileTime, place, status);
  // Not the directory's own number, unlike every other walk: the mark shortcut depends on it.
  if (setCursor) MoveCursor(place, GetDnum(place.slot));
  return 0;
}

int CQDCFList::GetNext(char* out, int outSize, char* objOut, int objSize, unsigned int* fileTime) {
  return TakeNext({out, outSize}, {objOut, objSize}, fileTime, nullptr);
}

int CQDCFList::StepNext(char* out, int outSize, char* objOut, int objSize, unsigned int* fileTime,
                        flm::FileStatus* status) {
  return TakeNext({out, outSize}, {objOut, objSize}, fileTime, status);
}

int CQDCFList::TakeNext(PathOut out, PathOut objOut, unsigned int* fileTime,
                        flm::FileStatus* status) {
  if (curDnum_ < 0) return TakeFirst(out, {objOut.text, out.size}, true, nullptr, nullptr);
  const int left = curDirIndex_;
  const Place place = ForwardReading(CursorPlace());
  if (place.item == nullptr) return -1;
  WritePath(out, place);
  if (place.slot != left) WriteObjectPath(objOut, place);
  WriteTime(fileTime, place, status);
  MoveCursor(place, NumberOf(place.slot));
  return 0;
}

int CQDCFList::GetPrev(char* out, int outSize, char* objOut, int objSize) {
  if (curDnum_ < 0) return kNoCursor;
  const int left = curDirIndex_;
  const Place place = BackwardReading(CursorPlace());
  if (place.item == nullptr) return -1;
  WritePath({out, outSize}, place);
  if (place.slot != left) WriteObjectPath({objOut, objSize}, place);
  MoveCursor(place, NumberOf(place.slot));
  return 0;
}

bool CQDCFList::PassNext() {
  if (curDnum_ < 0 || curItem_ == nullptr || curItem_->next == nullptr) return false;
  if (curItem_->next->fileTime == 0) return false;
  MoveCursor({curDirIndex_, curItem_->next}, NumberOf(curDirIndex_));
  return true;
}

bool CQDCFList::PassPrev() {
  if (curDnum_ < 0 || curItem_ == nullptr || curItem_->prev == nullptr) return false;
  MoveCursor({curDirIndex_, curItem_->prev}, NumberOf(curDirIndex_));
  return true;
}

int CQDCFList::GetLast(char* out, int outSize, char* objOut, int objSize) {
  InitCursor();
  const Place place = Backward(BehindLast());
  if (place.item == nullptr) return -1;
  WritePath({out, outSize}, place);
  WriteObjectPath({objOut, objSize}, place);
  MoveCursor(place, NumberOf(place.slot));
  return 0;
}

int CQDCFList::GetLastPath(char* out, int outSize) const {
  const Place place = Backward(BehindLast());
  if (place.item == nullptr) return -1;
  WritePath({out, outSize}, place);
  return 0;
}

int CQDCFList::GetFirstBeside(const char* path, char* out, int outSize) {
  const int slot = ReadPath(path).slot;
  const Place place = {slot, slot < 0 ? nullptr : dirTable_[slot].GetFirstItem()};
  if (place.item == nullptr) return -1;
  WritePath({out, outSize}, place);
  return 0;
}

int CQDCFList::GetCur(char* out, int outSize, char* objOut, int objSize) {
  if (curDnum_ < 0 || curFnum_ < 0) return -1;
  if (curItem_ == nullptr) return -1;
  WritePath({out, outSize}, CursorPlace());
  WriteObjectPath({objOut, objSize}, CursorPlace());
  return 0;
}

int CQDCFList::GetAt(int position, char* out, int outSize, char* objOut, int objSize) {
  const Place place = PlaceAt(position);
  if (place.item == nullptr) return -1;
  WritePath({out, outSize}, place);
  WriteObjectPath({objOut, objSize}, place);
  return 0;
}

DCFItem* CQDCFList::GetFirstDCFItem() {
  InitCursor();
  const Place place = ForwardReading(BeforeFirst());
  if (place.item != nullptr) MoveCursor(place, GetDnum(place.slot));
  return place.item;
}

DCFItem* CQDCFList::GetNextDCFItem() {
  if (curDnum_ < 0) return GetFirstDCFItem();
  const Place place = ForwardReading(CursorPlace());
  if (place.item != nullptr) MoveCursor(place, NumberOf(place.slot));
  return place.item;
}

int CQDCFList::IsLast(const char* path) {
  const Place last = Backward(BehindLast());
  if (path == nullptr || last.item == nullptr) return 0;
  int dirNumber = -1;
  short fileNumber = -1;
  GetNum(path, &dirNumber, &fileNumber);
  const bool same =
      dirNumber == dirTable_[last.slot].GetDnum() && fileNumber == last.item->fileNumber;
  return same ? 1 : 0;
}
